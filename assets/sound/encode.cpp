// encode.cpp: feeds the Vorbis coder block by block and gathers the pages of its stream.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "encode.h"

#include "fail.h"
#include "files.h"

#include <vorbis/vorbisenc.h>

#include <algorithm>
#include <string_view>

namespace sound {

namespace {

constexpr float QUALITY = 0.5F;           // about 160 kbit/s: no audible loss
constexpr std::size_t FED_AT_ONCE = 1024; // frames

// Everything the coder needs for one stream; releases it in the order that the library asks for.
struct coder {
    vorbis_info info;
    vorbis_comment comment;
    vorbis_dsp_state dsp;
    vorbis_block block;
    ogg_stream_state stream;
    bool ready = false;

    explicit coder(int serial) {
        vorbis_info_init(&info);
        if (vorbis_encode_init_vbr(&info, static_cast<long>(CHANNELS), SAMPLE_RATE, QUALITY) != 0)
            return;
        vorbis_comment_init(&comment);
        vorbis_comment_add_tag(&comment, "COPYRIGHT", "The Tavimo developers");
        vorbis_comment_add_tag(&comment, "LICENSE", "CC0-1.0");
        vorbis_analysis_init(&dsp, &info);
        vorbis_block_init(&dsp, &block);
        ogg_stream_init(&stream, serial);
        ready = true;
    }

    coder(const coder &) = delete;
    coder &operator=(const coder &) = delete;

    ~coder() {
        if (ready) {
            ogg_stream_clear(&stream);
            vorbis_block_clear(&block);
            vorbis_dsp_clear(&dsp);
            vorbis_comment_clear(&comment);
        }
        vorbis_info_clear(&info);
    }
};

void append_page(std::string &out, const ogg_page &page) {
    const auto bytes = [](const unsigned char *data, long size) {
        return std::string_view(reinterpret_cast<const char *>(data), static_cast<std::size_t>(size));
    };
    out += bytes(page.header, page.header_len);
    out += bytes(page.body, page.body_len);
}

// The three header packets, on pages of their own.
void put_headers(coder &c, std::string &out) {
    ogg_packet packets[3];
    vorbis_analysis_headerout(&c.dsp, &c.comment, &packets[0], &packets[1], &packets[2]);
    for (ogg_packet &packet : packets)
        ogg_stream_packetin(&c.stream, &packet);
    ogg_page page;
    while (ogg_stream_flush(&c.stream, &page) != 0)
        append_page(out, page);
}

// Codes whatever the coder holds and appends the pages that are full, at the end also the last one.
void put_blocks(coder &c, std::string &out) {
    ogg_packet packet;
    ogg_page page;
    while (vorbis_analysis_blockout(&c.dsp, &c.block) == 1) {
        vorbis_analysis(&c.block, nullptr);
        vorbis_bitrate_addblock(&c.block);
        while (vorbis_bitrate_flushpacket(&c.dsp, &packet) != 0) {
            ogg_stream_packetin(&c.stream, &packet);
            while (ogg_stream_pageout(&c.stream, &page) != 0)
                append_page(out, page);
        }
    }
}

// The whole stream.
std::string encoded(const pcm &in, int serial) {
    coder c(serial);
    if (!c.ready)
        fail("the coder refuses the format");
    std::string out;
    put_headers(c, out);
    const std::size_t frames = in.channel[0].size();
    for (std::size_t first = 0; first < frames; first += FED_AT_ONCE) {
        const std::size_t count = std::min(FED_AT_ONCE, frames - first);
        float **buffer = vorbis_analysis_buffer(&c.dsp, static_cast<int>(count));
        for (std::size_t channel = 0; channel < CHANNELS; ++channel)
            std::copy_n(in.channel[channel].data() + first, count, buffer[channel]);
        vorbis_analysis_wrote(&c.dsp, static_cast<int>(count));
        put_blocks(c, out);
    }
    vorbis_analysis_wrote(&c.dsp, 0); // marks the end
    put_blocks(c, out);
    return out;
}

} // namespace

void write_ogg(const std::filesystem::path &path, const pcm &in, int serial) {
    const std::string bytes = encoded(in, serial);
    file_write(path, {{bytes}});
}

} // namespace sound
