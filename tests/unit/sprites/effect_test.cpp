// effect_test.cpp: the pictures that each effect shows, frame by frame, and where.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/effect.h"

#include "core/log.h"
#include "graphics/blit.h"
#include "graphics/pixel.h"
#include "resources/archive.h"
#include "support/archive_builder.h"
#include "support/fake_sdl.h"
#include "support/recording.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

using lines = std::vector<std::string>;

struct sequence {
    const char *folder;
    int count;
};
constexpr sequence SEQUENCES[] = {
    {"flare", 5}, {"burn/small", 18}, {"burn/large", 18}, {"confetti", 60}}; // in the order of loading

// Widths tell the pictures of a flare and neighbours of a burn apart.
constexpr int LARGER = 20;

int width_of(int number) {
    return 3 + number * 3 % 7;
}

// All the pictures but, where given, one.
void write_pictures(const temp_game &game, const std::string &missing = "") {
    archive_builder archive;
    for (const sequence &s : SEQUENCES) {
        for (int i = 0; i < s.count; ++i) {
            char name[64];
            std::snprintf(name, sizeof name, "xpm/field/%s/%.3i.xpm", s.folder, i + 1);
            const bool large = s.folder == std::string("burn/large");
            const auto width = static_cast<std::size_t>(width_of(i) + (large ? LARGER : 0));
            if (name != missing)
                archive.add(name, make_xpm({"a c #102030"},
                                           std::vector(static_cast<std::size_t>(4 + i % 3), std::string(width, 'a'))));
        }
    }
    archive.write(game.data("data.dar"));
}

struct effect_test : testing::Test {
    fake_scope fakes;
    temp_game game;
    effect *e = nullptr;

    effect_test() {
        log_set_mode(0);
        video_format = {.depth = 32, .bytes_per_pixel = 4, .shift = 2};
        EXPECT_EQ(blit_init(), 1);
        write_pictures(game);
        EXPECT_EQ(data_archive_open(), 1);
        EXPECT_EQ(effects_init(), 1);
        take_recording({});
    }
    ~effect_test() override {
        effect_free(e);
        effects_shutdown();
        data_archive_close();
    }
    void start(i32 kind) {
        e = effect_create(kind);
        effect_center_on(e, {100, 100, 31, 21});
    }
    bool finished() const { return (e->flags & EFFECT_FINISHED) != 0; }
};

TEST_F(effect_test, flare_grows_waits_and_shrinks_about_its_centre) {
    start(EFFECT_FLARE);
    std::vector<int> shown;
    while (!finished() && shown.size() < 100) {
        int number = 0;
        while (width_of(number) != e->w)
            ++number;
        shown.push_back(number);
        EXPECT_EQ(e->x + (e->w >> 1), 115);
        EXPECT_EQ(e->y + (e->h >> 1), 110);
        effect_update(e);
    }
    EXPECT_EQ(shown, (std::vector<int>{0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4, 4, 4, 3, 2, 1, 0}));
}

TEST_F(effect_test, burn_rises_and_can_be_large_from_its_first_picture) {
    for (const bool large : {false, true}) {
        start(EFFECT_BURN);
        if (large)
            effect_burn_large(e);
        EXPECT_EQ(e->w, width_of(0) + (large ? LARGER : 0));
        effect_center_on(e, {100, 100, 31, 21});
        const i32 y = e->y;
        int frames = 0;
        for (; !finished() && frames < 100; ++frames) {
            EXPECT_EQ(e->w, width_of(frames / 2) + (large ? LARGER : 0));
            EXPECT_EQ(e->x + (e->w >> 1), 115);
            effect_update(e);
        }
        EXPECT_EQ(frames, 36);
        EXPECT_EQ(y - e->y, 34);
        effect_free(std::exchange(e, nullptr));
    }
}

TEST_F(effect_test, confetti_falls_sways_and_flutters_in_its_colour) {
    struct row {
        const char *what;
        int dice[4]; // colour, vx + 50, vy - 100, x - 50
        i32 vmax;
        int frames;
        i32 dx, dy;
    };
    constexpr row rows[] = {
        {"straight down", {17, 50, 50, 0}, 0, 200, 0, 300},
        {"to the left first", {2, 0, 200, 100}, 50, 50, -12, 150},
        {"to the right first", {2, 100, 0, 100}, 50, 50, 13, 50},
    };
    for (const row &r : rows) {
        SCOPED_TRACE(r.what);
        fake_dice({r.dice[0], r.dice[1], r.dice[2], r.dice[3]});
        e = effect_create(EFFECT_CONFETTI);
        EXPECT_EQ(fake_dice_drawn(), 4);
        EXPECT_EQ(e->colour, 2);
        EXPECT_EQ(e->vmax, r.vmax);
        EXPECT_EQ(e->y, 1 - e->h);
        const i32 x = e->x + (e->w >> 1), y = e->y + (e->h >> 1);
        fake_dice({0}); // a new picture every other frame
        std::vector<i32> flutter;
        for (int i = 0; i < r.frames; ++i) {
            effect_update(e);
            if (i % 2 == 1 && i < 16)
                flutter.push_back(e->frame - 8);
        }
        EXPECT_EQ(e->x + (e->w >> 1) - x, r.dx);
        EXPECT_EQ(e->y + (e->h >> 1) - y, r.dy);
        const std::vector<i32> expected = {1, 2, 3, 2, 1, 0, 1, 2};
        EXPECT_TRUE(std::ranges::equal(flutter, std::span(expected).first(flutter.size())));
        effect_free(std::exchange(e, nullptr));
    }
}

TEST_F(effect_test, draws_fire_blended_twice_and_confetti_plain) {
    for (const i32 kind : {EFFECT_FLARE, EFFECT_BURN, EFFECT_CONFETTI}) {
        start(kind);
        effect_draw(e);
        const recording drawn = take_recording({{e->picture, "p"}});
        const std::string at = "p " + std::to_string(e->x) + " " + std::to_string(e->y);
        const std::string blended = "ex " + at + " 080 000000";
        EXPECT_EQ(drawn.now, kind == EFFECT_CONFETTI ? lines{"image " + at} : (lines{blended, blended}));
        EXPECT_EQ(drawn.next, lines{"restore " + recording_detail::text_of({e->x, e->y, e->w, e->h})});
        effect_free(std::exchange(e, nullptr));
    }
}

TEST_F(effect_test, start_up_fails_without_any_one_sequence) {
    for (const sequence &s : SEQUENCES) {
        effects_shutdown();
        data_archive_close();
        write_pictures(game, std::string("xpm/field/") + s.folder + "/005.xpm");
        ASSERT_EQ(data_archive_open(), 1);
        EXPECT_EQ(effects_init(), -1) << s.folder;
    }
}

} // namespace
