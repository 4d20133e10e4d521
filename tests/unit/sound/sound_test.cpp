// sound_test.cpp: what the audio thread is given for the sounds asked for, and files that cannot be played.
//
// The device is SDL's dummy and stays paused; the tests call the mixing function in its place.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sound/sound.h"

#include "ogg_maker.h"
#include "resources/archive.h"
#include "sound/sound_bank.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using samples = std::vector<i16>;

constexpr int BUFFER_BYTES = 16384;

struct sound_test : testing::Test {
    fake_scope fakes;
    temp_game game;
    archive_builder archive;

    sound_test() {
        game.log_to_file();
        setenv("SDL_AUDIODRIVER", "dummy", 1);
    }
    ~sound_test() override {
        sound_shutdown();
        data_archive_close();
        SDL_Quit();
    }
    void open() {
        archive.write(game.data("data.dar"));
        ASSERT_EQ(data_archive_open(), 1);
        ASSERT_EQ(sound_init(), 1);
        sound_set_effect_volume(128);
    }
    // Adds a sound's file; gives what it decodes to.
    samples add_file(i32 number, const file_bytes &file) {
        archive.add(std::string("ogg/") + SOUND_TABLE[number].name, file);
        write_file(game.data("one.ogg"), file);
        return decode_ogg(game.data("one.ogg"));
    }
    samples add(i32 number, const wave &w) { return add_file(number, make_ogg(w)); }

    static void ask(i32 number, int times = 1) {
        for (int i = 0; i < times; ++i)
            sound_play(number);
    }
    static samples hear(int bytes = BUFFER_BYTES) {
        samples stream(static_cast<std::size_t>(bytes) / sizeof(i16));
        sound_mix_callback(nullptr, reinterpret_cast<u8 *>(stream.data()), bytes);
        return stream;
    }
    // Runs frames until everything has been played; what was heard, without the silence at its end.
    static samples hear_all(int bytes = BUFFER_BYTES) {
        samples all;
        for (int silent = 0; silent < 2;) {
            sound_update();
            const samples part = hear(bytes);
            silent = std::ranges::count(part, 0) == std::ssize(part) ? silent + 1 : 0;
            all.insert(all.end(), part.begin(), part.end());
        }
        return trimmed(all);
    }
    static samples trimmed(samples s) {
        while (!s.empty() && s.back() == 0)
            s.pop_back();
        return s;
    }
};

// The sum of so many copies, each at a volume.
samples mixed(const samples &one, int copies, int volume = 128) {
    samples sum(one.size());
    for (std::size_t i = 0; i < one.size(); ++i)
        for (int k = 0; k < copies; ++k)
            sum[i] = static_cast<i16>(std::clamp(sum[i] + ((one[i] * volume) >> 7), -32768, 32767));
    return sum;
}

TEST_F(sound_test, plays_a_file_whole_in_any_portions_at_any_volume) {
    const samples one = add(SOUND_CLICK, {.frames = 200000}); // longer than what is decoded ahead
    open();
    for (const i32 nothing : {-1, static_cast<i32>(SOUND_COUNT)})
        ask(nothing);
    EXPECT_TRUE(hear_all().empty());
    for (const int bytes : {BUFFER_BYTES, BUFFER_BYTES / 4, BUFFER_BYTES * 3 - 12}) {
        ask(SOUND_CLICK);
        EXPECT_EQ(hear_all(bytes), trimmed(one)) << bytes;
    }
    for (const auto &[set, used] : {std::pair{64, 64}, {0, 0}, {-5, 0}, {1000, 128}}) {
        sound_set_effect_volume(set);
        ask(SOUND_CLICK);
        EXPECT_EQ(hear_all(), trimmed(mixed(one, 1, used))) << set;
    }
}

TEST_F(sound_test, limited_sounds_start_over_and_others_overlap) {
    const samples loud = add(SOUND_CLICK, {.frames = 30000, .level = 1.0F});
    add(SOUND_PUZZLE_COMPLETE, {.frames = 30000, .level = 1.0F});
    open();
    ask(SOUND_CLICK, 2);
    sound_update();
    EXPECT_TRUE(std::ranges::equal(hear(400), samples(loud.begin(), loud.begin() + 200)));
    ask(SOUND_CLICK);
    EXPECT_EQ(hear_all(), trimmed(loud)) << "asked for again while it plays";
    for (const int volume : {128, 100}) {
        sound_set_effect_volume(volume);
        ask(SOUND_PUZZLE_COMPLETE, 2);
        const samples both = mixed(loud, 2, volume);
        EXPECT_EQ(hear_all(), trimmed(both));
        EXPECT_EQ(*std::ranges::max_element(both), 32767);
        EXPECT_EQ(*std::ranges::min_element(both), -32768);
    }
}

TEST_F(sound_test, sixteen_at_once_and_none_after) {
    const samples quiet = add(SOUND_PUZZLE_COMPLETE, {.frames = 3000, .level = 0.04F});
    const samples click = add(SOUND_CLICK, {.frames = 3000, .level = 0.2F});
    open();
    ask(SOUND_CLICK);
    ask(SOUND_PUZZLE_COMPLETE, 40); // 15 find a channel
    sound_update();
    samples heard = hear(1000);
    ask(SOUND_PUZZLE_COMPLETE);
    ask(SOUND_CLICK); // would start over, but comes after one that found no channel
    const samples rest = hear_all();
    heard.insert(heard.end(), rest.begin(), rest.end());
    samples expected = mixed(quiet, 15);
    std::ranges::transform(expected, click, expected.begin(), [](i16 a, i16 b) { return static_cast<i16>(a + b); });
    EXPECT_EQ(heard, trimmed(expected));
    ask(SOUND_CLICK);
    EXPECT_EQ(hear_all(), trimmed(click)) << "the channels are free again";
}

TEST_F(sound_test, other_layouts_are_played_in_stereo) {
    const samples mono = add(SOUND_CLICK, {.channels = 1, .rate = 22050, .frames = 9000});
    const samples many = add(SOUND_PIECE_RETURN, {.channels = 4, .frames = 9000});
    file_bytes chained = make_ogg({.frames = 30000});
    std::ranges::copy(make_ogg({.channels = 1, .frames = 30000}), std::back_inserter(chained));
    add_file(SOUND_SCORE_SHOW, chained);
    open();
    for (const auto &[number, layout, channels] :
         {std::tuple{SOUND_CLICK, &mono, std::size_t{1}}, {SOUND_PIECE_RETURN, &many, std::size_t{4}}}) {
        samples expected;
        for (std::size_t i = 0; i < layout->size(); i += channels)
            expected.insert(expected.end(), {(*layout)[i], (*layout)[i + (channels > 1)]});
        ask(number);
        EXPECT_EQ(hear_all(), trimmed(expected)) << channels;
    }
    ask(SOUND_SCORE_SHOW);
    EXPECT_NEAR(static_cast<double>(hear_all().size()), 4 * 30000, 100);
}

TEST_F(sound_test, files_that_cannot_be_played_are_logged_and_skipped) {
    add_file(SOUND_CLICK, to_bytes("no sound at all, but a few words"));
    add_file(SOUND_PIECE_RETURN, file_bytes{});
    add(SOUND_SCORE_LOG, wave{.frames = 0});
    const samples good = add(SOUND_SCORE_SHOW, {.frames = 4000});
    open();
    for (const i32 number : {SOUND_CLICK, SOUND_PIECE_RETURN, SOUND_SCORE_LOG, SOUND_BOARD_SLIDE, SOUND_SCORE_SHOW})
        ask(number);
    EXPECT_EQ(hear_all(), trimmed(good));
    EXPECT_EQ(game.log_text(), "Sound enabled.\n"
                               "Warning: Could not decode sound file click.ogg\n"
                               "Warning: Could not open sound file ogg/piece_return.ogg\n"
                               "Warning: Could not open sound file ogg/board_slide.ogg\n");
}

} // namespace
