// tavimo-sounds DIR [BANK]: makes the game's sounds, DIR/ogg/*.ogg, from the instruments of a sound
// bank and a little noise. The tables below say all there is to each sound. The same bank and the
// same libraries give the same files, byte for byte.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "encode.h"
#include "fail.h"
#include "shape.h"
#include "sound/sound_bank.h"
#include "synth.h"

#include <cstdio>
#include <filesystem>
#include <iterator>

namespace {

using sound::instrument;
using sound::noise;
using sound::note;

// The presets of the General MIDI numbering that are used; the kit lies in the bank for drums.
constexpr instrument CELESTA{0, 8}, GLOCKENSPIEL{0, 9}, MARIMBA{0, 12}, XYLOPHONE{0, 13}, PIZZICATO{0, 45}, HARP{0, 46},
    TIMPANI{0, 47}, STRINGS{0, 48}, TRUMPET{0, 56}, HORNS{0, 60}, BRASS{0, 61}, WOODBLOCK{0, 115},
    ORCHESTRA_KIT{128, 48};

// --- What is played ------------------------------------------------------------------------------
// Everything is in the pentatonic scale C D E G A: whatever sounds together by chance sounds well.

// clang-format off
//   instrument       key   vel   start    len    pan, bend, damped
constexpr note CLICK[] = {
    {WOODBLOCK,       88,   70,  0.000,  0.06,  0.00},
};

constexpr noise BOARD_SLIDE[] = {
    {.length = 0.28, .rise = 0.10, .fall = 1.2, .from_hz = 1500, .to_hz = 3400, .sharpness = 0.8, .grain_hz = 90, .level_db = -12},
    {.length = 0.28, .rise = 0.08, .fall = 1.5, .from_hz =  320, .to_hz =  520, .sharpness = 1.0, .grain_hz = 45, .level_db = -13},
};

// The knock of cardboard on cardboard under each note of a placed piece.
constexpr noise THUD[] = {
    {.length = 0.07, .rise = 0.003, .fall = 4, .from_hz =  300, .to_hz = 140, .sharpness = 1.1, .level_db =  -8},
    {.length = 0.03, .rise = 0.002, .fall = 5, .from_hz = 1400, .to_hz = 900, .sharpness = 0.8, .level_db = -22},
};
constexpr note PLACE_C5[] = {{MARIMBA, 72, 100, 0, 0.3}, {XYLOPHONE, 72, 45, 0, 0.2}};
constexpr note PLACE_D5[] = {{MARIMBA, 74, 100, 0, 0.3}, {XYLOPHONE, 74, 45, 0, 0.2}};
constexpr note PLACE_E5[] = {{MARIMBA, 76, 100, 0, 0.3}, {XYLOPHONE, 76, 45, 0, 0.2}};
constexpr note PLACE_G5[] = {{MARIMBA, 79, 100, 0, 0.3}, {XYLOPHONE, 79, 45, 0, 0.2}};
constexpr note PLACE_A5[] = {{MARIMBA, 81, 100, 0, 0.3}, {XYLOPHONE, 81, 45, 0, 0.2}};
constexpr note PLACE_C6[] = {{MARIMBA, 84, 100, 0, 0.3}, {XYLOPHONE, 84, 45, 0, 0.2}};

//   instrument       key   vel   start    len    pan
constexpr note PIECE_EMERGE[] = {
    {CELESTA,         72,   74,  0.000,  0.12, -0.30},
    {CELESTA,         74,   78,  0.040,  0.12, -0.20},
    {CELESTA,         76,   82,  0.080,  0.12, -0.10},
    {CELESTA,         79,   88,  0.120,  0.12,  0.10},
    {CELESTA,         81,   94,  0.160,  0.12,  0.20},
    {CELESTA,         84,  102,  0.200,  0.20,  0.30},
};

constexpr note PIECE_RETURN[] = {
    {MARIMBA,         81,  100,  0.000,  0.10,  0.30},
    {MARIMBA,         79,   94,  0.050,  0.10,  0.20},
    {MARIMBA,         76,   90,  0.100,  0.10,  0.10},
    {MARIMBA,         74,   86,  0.150,  0.10, -0.10},
    {MARIMBA,         72,   84,  0.200,  0.10, -0.20},
    {MARIMBA,         67,   90,  0.250,  0.15, -0.30},
};

// A bubble bursts: a short stopped note that leaps upwards, and a little air that escapes.
constexpr note POP[] = {
    {MARIMBA,         67,  110,  0.000,  0.11,  0.00,   12, true},
    {PIZZICATO,       67,   62,  0.000,  0.10,  0.00,   12, true},
    {MARIMBA,         79,   60,  0.075,  0.12,  0.00,    7, true},
};
constexpr noise POP_AIR[] = {
    {.start = 0.03, .length = 0.30, .rise = 0.05, .fall = 2.5, .from_hz = 700, .to_hz = 1700, .sharpness = 1.2, .level_db = -23},
};

// A friendly call that comes to rest on the scale's home note: no blame, just "not yet".
constexpr note NOT_YET[] = {
    {MARIMBA,         64,   84,  0.000,  0.18,  0.05},
    {HARP,            64,   58,  0.000,  0.18, -0.05},
    {MARIMBA,         60,   68,  0.190,  0.30,  0.05},
    {HARP,            60,   48,  0.190,  0.30, -0.05},
};

constexpr note CHIME[] = {
    {CELESTA,         91,  104,  0.000,  0.50,  0.00},
    {GLOCKENSPIEL,    79,   56,  0.000,  0.50,  0.00},
};

constexpr note HARP_RUN[] = {
    {HARP,            48,   80,  0.000,  0.90, -0.50},
    {HARP,            52,   72,  0.045,  0.80, -0.40},
    {HARP,            55,   74,  0.090,  0.80, -0.30},
    {HARP,            57,   76,  0.135,  0.80, -0.25},
    {HARP,            60,   78,  0.180,  0.80, -0.15},
    {HARP,            62,   80,  0.225,  0.70, -0.10},
    {HARP,            64,   82,  0.270,  0.70,  0.00},
    {HARP,            67,   85,  0.315,  0.70,  0.10},
    {HARP,            69,   88,  0.360,  0.60,  0.15},
    {HARP,            72,   92,  0.405,  0.60,  0.25},
    {HARP,            74,   95,  0.450,  0.60,  0.30},
    {HARP,            76,   98,  0.495,  0.50,  0.40},
    {HARP,            79,  104,  0.545,  0.50,  0.50},
};

// In beats of 0.42 s with three parts each: three calls lead to the second beat, one leads to the third.
constexpr note FANFARE[] = {
    // Three short calls and a longer one,
    {TRUMPET,         67,   96,  0.000,  0.10, -0.15},
    {HORNS,           60,   94,  0.000,  0.10,  0.20},
    {MARIMBA,         67,   98,  0.000,  0.10,  0.00},
    {TRUMPET,         67,   90,  0.140,  0.10, -0.15},
    {HORNS,           60,   88,  0.140,  0.10,  0.20},
    {MARIMBA,         67,   92,  0.140,  0.10,  0.00},
    {TRUMPET,         67,   94,  0.280,  0.10, -0.15},
    {HORNS,           60,   92,  0.280,  0.10,  0.20},
    {MARIMBA,         67,   96,  0.280,  0.10,  0.00},
    {TRUMPET,         72,  106,  0.420,  0.24, -0.15},
    {HORNS,           64,  102,  0.420,  0.24,  0.20},
    {MARIMBA,         72,  106,  0.420,  0.10,  0.00},
    {TRUMPET,         76,  100,  0.700,  0.11, -0.15},
    {HORNS,           67,   98,  0.700,  0.11,  0.20},
    {MARIMBA,         76,  102,  0.700,  0.10,  0.00},
    // a sweep up,
    {HARP,            67,   70,  0.560,  0.80, -0.40},
    {HARP,            69,   72,  0.607,  0.80, -0.20},
    {HARP,            72,   76,  0.653,  0.80,  0.00},
    {HARP,            74,   80,  0.700,  0.80,  0.10},
    {HARP,            76,   84,  0.747,  0.80,  0.20},
    {HARP,            79,   88,  0.793,  0.80,  0.40},
    // and the final chord, whose brass dies away so that the bells over it can be heard.
    {TRUMPET,         79,  104,  0.840,  2.20, -0.15,    0, true},
    {TRUMPET,         76,   88,  0.840,  2.20,  0.10,    0, true},
    {BRASS,           72,   86,  0.840,  2.10,  0.10,    0, true},
    {BRASS,           67,   84,  0.840,  2.10, -0.10,    0, true},
    {HORNS,           64,   88,  0.840,  2.20,  0.25,    0, true},
    {HORNS,           60,   88,  0.840,  2.20,  0.30,    0, true},
    {STRINGS,         48,   78,  0.840,  1.35,  0.20},
    {STRINGS,         60,   70,  0.840,  1.35, -0.20},
    {STRINGS,         72,   70,  0.840,  1.35, -0.30},
    {STRINGS,         76,   70,  0.840,  1.35,  0.10},
    {TIMPANI,         48,   80,  0.840,  1.40,  0.00},
    {ORCHESTRA_KIT,   57,   52,  0.840,  1.20,  0.00},
    {GLOCKENSPIEL,    84,   84,  0.840,  1.20,  0.25},
    {GLOCKENSPIEL,    88,   78,  0.980,  1.20, -0.20},
    {GLOCKENSPIEL,    91,   82,  1.120,  1.20,  0.20},
    {GLOCKENSPIEL,    96,   88,  1.260,  1.20,  0.00},
    {CELESTA,         84,   80,  1.680,  0.80, -0.10},
    {CELESTA,         91,   76,  1.680,  0.80,  0.10},
    {GLOCKENSPIEL,    96,   70,  1.680,  0.80,  0.00},
};
// clang-format on

// --- The fifteen sounds --------------------------------------------------------------------------

struct sound_source {
    sound_id id;
    std::span<const note> notes;
    std::span<const noise> noises;
    double seconds;  // length of the file
    double fade;     // seconds at its end
    double loudness; // LUFS in the loudest eighth of a second
};

// Small frequent sounds stay behind, rare ones may step forward.
// clang-format off
constexpr sound_source SOUNDS[] = {
    // id                               notes         noises       s     fade  loudness
    {SOUND_BOARD_SLIDE,                 {},           BOARD_SLIDE, 0.30, 0.08, -21},
    {SOUND_PIECE_DISAPPEAR,             POP,          POP_AIR,     0.40, 0.15, -17},
    {SOUND_PIECE_RETURN,                PIECE_RETURN, {},          0.45, 0.18, -15},
    {SOUND_SCORE_SHOW,                  CHIME,        {},          0.50, 0.35, -18},
    {SOUND_PUZZLE_COMPLETE,             FANFARE,      {},          2.50, 0.60, -13},
    {SOUND_CLICK,                       CLICK,        {},          0.08, 0.05, -20},
    {SOUND_INCORRECT_NUMBER,            NOT_YET,      {},          0.50, 0.20, -18},
    {SOUND_PIECE_EMERGE,                PIECE_EMERGE, {},          0.45, 0.20, -15},
    {SOUND_PIECE_PLACE_1,               PLACE_C5,     THUD,        0.40, 0.20, -15},
    {sound_id{SOUND_PIECE_PLACE_1 + 1}, PLACE_D5,     THUD,        0.40, 0.20, -15},
    {sound_id{SOUND_PIECE_PLACE_1 + 2}, PLACE_E5,     THUD,        0.40, 0.20, -15},
    {sound_id{SOUND_PIECE_PLACE_1 + 3}, PLACE_G5,     THUD,        0.40, 0.20, -15},
    {sound_id{SOUND_PIECE_PLACE_1 + 4}, PLACE_A5,     THUD,        0.40, 0.20, -15},
    {SOUND_PIECE_PLACE_6,               PLACE_C6,     THUD,        0.40, 0.20, -15},
    {SOUND_SCORE_LOG,                   HARP_RUN,     {},          1.00, 0.40, -15},
};
// clang-format on

constexpr bool every_sound_in_its_place() {
    for (int i = 0; i < SOUND_COUNT; ++i)
        if (SOUNDS[i].id != i)
            return false;
    return std::size(SOUNDS) == SOUND_COUNT;
}
static_assert(every_sound_in_its_place());

// Renders one sound; the instruments may start a little late, so a little more is played than needed.
sound::pcm render(const std::string &bank_file, const sound_source &source) {
    constexpr double SPARE = 0.1; // seconds
    sound::pcm out = sound::play(bank_file, source.notes, sound::frames_of(source.seconds + SPARE));
    std::uint64_t seed = 0; // the same for all sounds, so that those which share a noise are alike
    for (const noise &layer : source.noises)
        sound::add_noise(out, layer, seed++);
    sound::cut_and_fade(out, source.seconds, source.fade);
    const double reached = sound::set_loudness(out, source.loudness);
    std::printf("%s%s: %.2f s, %.1f LUFS\n", SOUND_FOLDER, SOUND_TABLE[source.id].name, source.seconds, reached);
    return out;
}

int run(int argc, char **argv) {
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "usage: tavimo-sounds DIR [BANK]\n");
        return 2;
    }
    const std::filesystem::path folder = std::filesystem::path(argv[1]) / SOUND_FOLDER;
    std::filesystem::create_directories(folder);
    int serial = 0;
    for (const sound_source &source : SOUNDS)
        sound::write_ogg(folder / SOUND_TABLE[source.id].name, render(argc == 3 ? argv[2] : TAVIMO_SOUND_BANK, source),
                         ++serial);
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    return exit_code_of("tavimo-sounds", [=] { return run(argc, argv); });
}
