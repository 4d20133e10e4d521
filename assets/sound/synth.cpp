// synth.cpp: the synthesiser behind synth.h; every note has a MIDI channel to itself, so that notes
// of one instrument can differ in place and pitch bend.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "synth.h"

#include "fail.h"

#include <fluidsynth.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace sound {

namespace {

constexpr int MIDI_CHANNELS = 64;
constexpr int POLYPHONY = 256;
constexpr double SYNTH_GAIN = 0.5; // leaves headroom; the mix is levelled afterwards
constexpr std::size_t BLOCK = 64;  // frames between two looks at the notes: the synthesiser's own step

constexpr int CONTROL_PAN = 10;
constexpr int CONTROL_EXPRESSION = 11;
constexpr int CONTROL_MOST = 127;
constexpr int CONTROL_CENTRE = 64;
constexpr int CONTROL_HALF_RANGE = 63;
constexpr int BEND_RANGE = 12; // semitones
constexpr int BEND_CENTRE = 8192;
constexpr int BEND_HALF_RANGE = 8191;

struct settings_delete {
    void operator()(fluid_settings_t *settings) const { delete_fluid_settings(settings); }
};
struct synth_delete {
    void operator()(fluid_synth_t *synth) const { delete_fluid_synth(synth); }
};

// Only errors are of interest: the library also warns of things that concern players of live music.
void quieten_library() {
    for (const int level : {FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(level, nullptr, nullptr);
}

// Sets everything that could make two runs or two machines differ.
void fix_settings(fluid_settings_t *settings) {
    fluid_settings_setnum(settings, "synth.sample-rate", SAMPLE_RATE);
    fluid_settings_setnum(settings, "synth.gain", SYNTH_GAIN);
    fluid_settings_setint(settings, "synth.cpu-cores", 1);
    fluid_settings_setint(settings, "synth.midi-channels", MIDI_CHANNELS);
    fluid_settings_setint(settings, "synth.polyphony", POLYPHONY);
    fluid_settings_setint(settings, "synth.reverb.active", 0);
    fluid_settings_setint(settings, "synth.chorus.active", 0);
    fluid_settings_setint(settings, "synth.lock-memory", 0);
    // Decoding every sample of the bank takes many seconds; the sounds need a dozen instruments of it.
    fluid_settings_setint(settings, "synth.dynamic-sample-loading", 1);
}

// A synthesiser with its settings and one bank.
struct player {
    std::unique_ptr<fluid_settings_t, settings_delete> settings; // outlives the synthesiser
    std::unique_ptr<fluid_synth_t, synth_delete> synth;
    int bank_id = 0;
};

// A silent player.
player make_player(const std::string &bank_file) {
    if (!std::filesystem::exists(bank_file))
        fail("there is no sound bank " + bank_file +
             " (Debian: musescore-general-soundfont-small); another one can be named after the folder");
    quieten_library();
    player p;
    p.settings.reset(new_fluid_settings());
    fix_settings(p.settings.get());
    p.synth.reset(new_fluid_synth(p.settings.get()));
    if (p.synth)
        p.bank_id = fluid_synth_sfload(p.synth.get(), bank_file.c_str(), 0);
    if (!p.synth || p.bank_id == FLUID_FAILED)
        fail("the sound bank " + bank_file + " cannot be used");
    fluid_synth_set_interp_method(p.synth.get(), -1, FLUID_INTERP_7THORDER);
    return p;
}

// Readies channel `channel` for its note: instrument, place and bend range.
void prepare_channel(const player &p, int channel, const note &n) {
    fluid_synth_t *synth = p.synth.get();
    const auto [bank, program] = n.played_on;
    if (fluid_synth_program_select(synth, channel, p.bank_id, bank, program) == FLUID_FAILED)
        fail("the sound bank has no instrument " + std::to_string(program) + " in bank " + std::to_string(bank));
    const int pan = CONTROL_CENTRE + static_cast<int>(std::lround(n.pan * CONTROL_HALF_RANGE));
    fluid_synth_cc(synth, channel, CONTROL_PAN, pan);
    fluid_synth_pitch_wheel_sens(synth, channel, BEND_RANGE);
}

// Presses, bends and releases the key of one note for the block that begins at `frame`.
void play_block(const player &p, int channel, const note &n, std::size_t frame) {
    fluid_synth_t *synth = p.synth.get();
    const std::size_t on = frames_of(n.start) / BLOCK * BLOCK;
    const std::size_t off = std::max(on + BLOCK, frames_of(n.start + n.length) / BLOCK * BLOCK);
    if (frame < on || frame > off)
        return;
    const double part = static_cast<double>(frame - on) / static_cast<double>(off - on);
    if (n.damped)
        fluid_synth_cc(synth, channel, CONTROL_EXPRESSION, static_cast<int>(CONTROL_MOST * (1 - part)));
    if (n.bend != 0) {
        const double wheel = part * n.bend / BEND_RANGE * BEND_HALF_RANGE;
        fluid_synth_pitch_bend(synth, channel, BEND_CENTRE + static_cast<int>(std::lround(wheel)));
    }
    if (frame == on)
        fluid_synth_noteon(synth, channel, n.key, n.velocity);
    else if (frame == off)
        fluid_synth_noteoff(synth, channel, n.key);
}

} // namespace

pcm play(const std::string &bank_file, std::span<const note> notes, std::size_t frames) {
    if (notes.size() > MIDI_CHANNELS)
        fail("more than " + std::to_string(MIDI_CHANNELS) + " notes in one sound");
    const player p = make_player(bank_file);
    for (std::size_t i = 0; i < notes.size(); ++i)
        prepare_channel(p, static_cast<int>(i), notes[i]);
    const std::size_t blocks = (frames + BLOCK - 1) / BLOCK;
    pcm out;
    for (std::vector<float> &samples : out.channel)
        samples.resize(blocks * BLOCK);
    for (std::size_t frame = 0; frame < blocks * BLOCK; frame += BLOCK) {
        for (std::size_t i = 0; i < notes.size(); ++i)
            play_block(p, static_cast<int>(i), notes[i], frame);
        fluid_synth_write_float(p.synth.get(), BLOCK, out.channel[0].data() + frame, 0, 1,
                                out.channel[1].data() + frame, 0, 1);
    }
    return out;
}

} // namespace sound
