// ogg_maker.cpp: encodes tones with cut-off peaks.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "ogg_maker.h"

#include <vorbis/vorbisenc.h>
#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr float QUALITY = 0.3F;
constexpr float FIFTH = 1.5F;

void put_pages(file_bytes *file, ogg_stream_state *stream) {
    for (ogg_page page; ogg_stream_flush(stream, &page) != 0;) {
        file->insert(file->end(), page.header, page.header + page.header_len);
        file->insert(file->end(), page.body, page.body + page.body_len);
    }
}

void put_samples(vorbis_dsp_state *dsp, const wave &w) {
    float **pcm = vorbis_analysis_buffer(dsp, w.frames);
    for (int c = 0; c < w.channels; ++c)
        for (int i = 0; i < w.frames; ++i) {
            const float turns =
                w.hertz * std::pow(FIFTH, static_cast<float>(c)) * static_cast<float>(i) / static_cast<float>(w.rate);
            pcm[c][i] = w.level * std::clamp(4 * std::sin(2 * std::numbers::pi_v<float> * turns), -1.0F, 1.0F);
        }
    vorbis_analysis_wrote(dsp, w.frames);
    vorbis_analysis_wrote(dsp, 0); // the end
}

} // namespace

file_bytes make_ogg(const wave &w) {
    file_bytes file;
    vorbis_info info;
    vorbis_comment comment;
    vorbis_dsp_state dsp;
    vorbis_block block;
    ogg_stream_state stream;
    vorbis_info_init(&info);
    vorbis_encode_init_vbr(&info, w.channels, w.rate, QUALITY);
    vorbis_comment_init(&comment);
    vorbis_analysis_init(&dsp, &info);
    vorbis_block_init(&dsp, &block);
    ogg_stream_init(&stream, static_cast<int>(w.frames + w.channels));
    ogg_packet headers[3];
    vorbis_analysis_headerout(&dsp, &comment, &headers[0], &headers[1], &headers[2]);
    for (ogg_packet &packet : headers)
        ogg_stream_packetin(&stream, &packet);
    put_pages(&file, &stream);
    if (w.frames > 0)
        put_samples(&dsp, w);
    while (vorbis_analysis_blockout(&dsp, &block) == 1) {
        vorbis_analysis(&block, nullptr);
        vorbis_bitrate_addblock(&block);
        for (ogg_packet packet; vorbis_bitrate_flushpacket(&dsp, &packet) != 0;)
            ogg_stream_packetin(&stream, &packet);
        put_pages(&file, &stream); // many small pages, so that damage hits some of many
    }
    ogg_stream_clear(&stream);
    vorbis_block_clear(&block);
    vorbis_dsp_clear(&dsp);
    vorbis_comment_clear(&comment);
    vorbis_info_clear(&info);
    return file;
}

std::vector<i16> decode_ogg(const std::filesystem::path &path) {
    std::vector<i16> samples;
    OggVorbis_File file;
    if (ov_fopen(path.c_str(), &file) != 0)
        return samples;
    i16 part[1024];
    int link = 0;
    for (long bytes = 1; bytes > 0;) {
        bytes = ov_read(&file, reinterpret_cast<char *>(part), sizeof part, 0, 2, 1, &link);
        if (bytes > 0)
            samples.insert(samples.end(), part, part + bytes / 2);
    }
    ov_clear(&file);
    return samples;
}
