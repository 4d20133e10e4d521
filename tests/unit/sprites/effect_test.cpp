// effect_test.cpp: the pictures that each effect shows, frame by frame, and where.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/effect.h"

#include "core/log.h"
#include "graphics/blit.h"
#include "resources/archive.h"
#include "resources/pixel.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"
#include "support/recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::pair<const char *, int> SEQUENCES[] = {
    {"flare", 5}, {"burn/small", 18}, {"burn/large", 18}, {"confetti", 60}}; // in the order of loading

// Widths tell the pictures of a flare and neighbours of a burn apart.
constexpr int LARGER = 20;

int width_of(int number) {
    return 3 + number * 3 % 7;
}

struct effect_test : testing::Test {
    fake_scope fakes;
    temp_game game;
    effect *e = nullptr;

    effect_test() {
        log_set_mode(0);
        video_format = {.depth = 32, .bytes_per_pixel = 4, .shift = 2};
        EXPECT_EQ(blit_init(), 1);
        EXPECT_EQ(load(), 1);
        take_recording();
    }
    ~effect_test() override {
        effect_free(e);
        effects_shutdown();
        data_archive_close();
    }
    // All the pictures but, where given, one.
    i32 load(const std::string &missing = "") const {
        archive_builder archive;
        for (const auto &[folder, count] : SEQUENCES) {
            for (int i = 0; i < count; ++i) {
                char name[64];
                std::snprintf(name, sizeof name, "xpm/field/%s/%.3i.xpm", folder, i + 1);
                const int width = width_of(i) + (folder == std::string("burn/large") ? LARGER : 0);
                const lines rows(static_cast<std::size_t>(4 + i % 3),
                                 std::string(static_cast<std::size_t>(width), 'a'));
                if (name != missing)
                    archive.add(name, make_xpm({"a c #102030"}, rows));
            }
        }
        archive.write(game.data("data.dar"));
        EXPECT_EQ(data_archive_open(), 1);
        return effects_init();
    }
    void start(i32 kind) {
        effect_free(e);
        e = effect_create(kind);
        effect_center_on(e, {100, 100, 31, 21});
    }
    bool finished() const { return (e->flags & EFFECT_FINISHED) != 0; }
    i32 middle_x() const { return e->x + (e->w >> 1); }
    i32 middle_y() const { return e->y + (e->h >> 1); }
};

TEST_F(effect_test, flare_grows_waits_and_shrinks_about_its_centre) {
    start(EFFECT_FLARE);
    std::vector<int> shown;
    for (; !finished() && shown.size() < 100; effect_update(e)) {
        int number = 0;
        while (width_of(number) != e->w)
            ++number;
        shown.push_back(number);
        EXPECT_TRUE(middle_x() == 115 && middle_y() == 110);
    }
    EXPECT_EQ(shown, (std::vector<int>{0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4, 4, 4, 3, 2, 1, 0}));
}

TEST_F(effect_test, burn_rises_and_can_be_large_from_its_first_picture) {
    for (const bool large : {false, true}) {
        start(EFFECT_BURN);
        if (large)
            effect_burn_large(e);
        effect_center_on(e, {100, 100, 31, 21});
        const i32 y = e->y;
        int frames = 0;
        for (; !finished() && frames < 100; ++frames) {
            EXPECT_EQ(e->w, width_of(frames / 2) + (large ? LARGER : 0));
            EXPECT_EQ(middle_x(), 115);
            effect_update(e);
        }
        EXPECT_TRUE(frames == 36 && y - e->y == 34) << frames;
    }
}

TEST_F(effect_test, confetti_falls_sways_and_flutters_in_its_colour) {
    const struct {
        const char *what;
        std::initializer_list<int> dice; // colour, vx + 50, vy - 100, x - 50
        i32 vmax;
        int frames;
        i32 dx, dy;
    } ROWS[] = {
        {"straight down", {17, 50, 50, 0}, 0, 200, 0, 300},
        {"to the left first", {2, 0, 200, 100}, 50, 50, -12, 150},
        {"to the right first", {2, 100, 0, 100}, 50, 50, 13, 50},
    };
    for (const auto &r : ROWS) {
        SCOPED_TRACE(r.what);
        effect_free(e);
        fake_dice(r.dice);
        e = effect_create(EFFECT_CONFETTI);
        EXPECT_TRUE(fake_dice_drawn() == 4 && e->colour == 2 && e->vmax == r.vmax && e->y == 1 - e->h);
        const i32 x = middle_x(), y = middle_y();
        fake_dice({0}); // a new picture every other frame
        std::string flutter;
        for (int i = 0; i < r.frames; ++i) {
            effect_update(e);
            if (i % 2 == 1)
                flutter += static_cast<char>('0' + e->frame - 8);
        }
        EXPECT_TRUE(middle_x() - x == r.dx && middle_y() - y == r.dy);
        EXPECT_EQ(flutter.substr(0, 8), "12321012");
    }
}

TEST_F(effect_test, draws_fire_blended_twice_and_confetti_plain) {
    for (const i32 kind : {EFFECT_FLARE, EFFECT_CONFETTI}) {
        start(kind);
        effect_draw(e);
        const recording drawn = take_recording({{e->picture, "p"}});
        const std::string at = "p" + recording_detail::text_of(e->x, e->y), blended = "ex " + at + " 080 000000";
        EXPECT_EQ(drawn.now, kind == EFFECT_CONFETTI ? lines{"image " + at} : (lines{blended, blended}));
        EXPECT_EQ(drawn.next, lines{"restore" + recording_detail::text_of(rect{e->x, e->y, e->w, e->h})});
    }
}

TEST_F(effect_test, start_up_fails_without_any_one_sequence) {
    for (const auto &[folder, count] : SEQUENCES) {
        effects_shutdown();
        data_archive_close();
        EXPECT_EQ(load(std::string("xpm/field/") + folder + "/005.xpm"), -1) << folder;
    }
}

} // namespace
