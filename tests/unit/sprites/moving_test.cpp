// moving_test.cpp: the pictures that each effect shows, frame by frame, and where; digits that fly, and typing them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/blit.h"
#include "resources/archive.h"
#include "resources/pixel.h"
#include "sprites/effect.h"
#include "sprites/number_entry.h"
#include "support/fake_sdl.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

// --- Effects -------------------------------------------------------------------------------------

// With the real archive's pictures.
struct effect_test : testing::Test {
    fake_scope fakes;
    temp_game game;
    effect *e = nullptr;

    effect_test() {
        game.log_to_file();
        video_format = {.depth = 32, .bytes_per_pixel = 4, .shift = 2};
        std::filesystem::create_symlink(TAVIMO_DATA_FILE, game.data("data.dar"));
        EXPECT_TRUE(blit_init() == 1 && data_archive_open() == 1 && effects_init() == 1);
    }
    ~effect_test() override {
        effect_free(e);
        effects_shutdown();
        data_archive_close();
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

TEST_F(effect_test, flare_grows_waits_and_shrinks_and_burn_rises) {
    start(EFFECT_FLARE);
    const image *const *pictures = e->frames;
    std::vector<std::ptrdiff_t> shown;
    for (; !finished() && shown.size() < 100; effect_update(e)) {
        shown.push_back(std::find(pictures, pictures + 5, e->picture) - pictures);
        EXPECT_TRUE(middle_x() == 115 && middle_y() == 110);
    }
    EXPECT_EQ(shown, (std::vector<std::ptrdiff_t>{0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4, 4, 4, 3, 2, 1, 0}));
    start(EFFECT_BURN);
    const i32 y = e->y;
    int frames = 0;
    for (; !finished() && frames < 100; ++frames) {
        EXPECT_TRUE(e->picture == e->frames[frames / 2] && middle_x() == 115);
        effect_update(e);
    }
    EXPECT_TRUE(frames == 36 && y - e->y == 34) << frames;
}

TEST_F(effect_test, confetti_falls_sways_and_flutters_in_its_colour) {
    const struct {
        std::initializer_list<int> dice; // colour, vx + 50, vy - 100, x - 50
        int frames;
        i32 dx, dy;
    } ROWS[] = {{{17, 50, 50, 0}, 200, 0, 300}, {{2, 0, 200, 100}, 50, -12, 150}, {{2, 100, 0, 100}, 50, 13, 50}};
    for (const auto &r : ROWS) {
        fake_dice(r.dice);
        effect_free(e);
        e = effect_create(EFFECT_CONFETTI);
        EXPECT_TRUE(e->colour == 2 && e->y == 1 - e->h);
        const i32 x = middle_x(), y = middle_y();
        fake_dice({0}); // a new picture every other frame
        std::string flutter;
        for (int i = 0; i < r.frames; ++i) {
            effect_update(e);
            if (i % 2 == 1)
                flutter += static_cast<char>('0' + e->frame - 8);
        }
        EXPECT_TRUE(middle_x() - x == r.dx && middle_y() - y == r.dy) << r.dx;
        EXPECT_EQ(flutter.substr(0, 8), "12321012");
    }
}

// --- Digits --------------------------------------------------------------------------------------

TEST(glyph_mover, arrives_in_the_frames_laid_down) {
    const struct {
        const char *what;
        i32 dx, dy, frames;
        int landing, arrival; // in which frame it stands on its target, and in which that is noticed
    } ROWS[] = {
        {"even steps land exactly and are noticed a frame later", 100, -50, 10, 10, 11},
        {"uneven steps are clamped, on both axes, backward", -109, -101, 10, 11, 11},
        {"a short way is made at once", 9, -10, 10, 1, 2},
        {"no way at all", 0, 0, 0, 1, 1},
    };
    const image picture = {};
    for (const auto &r : ROWS) {
        glyph_mover m = {};
        glyph_mover_start(&m, &picture, 300, 200, 300 + r.dx, 200 + r.dy, r.frames);
        int landing = 0, arrival = 0;
        for (int frame = 1; frame <= 20; ++frame) {
            glyph_mover_step(&m);
            if (landing == 0 && m.x == 300 + r.dx && m.y == 200 + r.dy)
                landing = frame;
            if (arrival == 0 && glyph_mover_arrived(&m))
                arrival = frame;
        }
        EXPECT_TRUE(landing == r.landing && arrival == r.arrival) << r.what << ": " << landing << ", " << arrival;
    }
}

using places = std::vector<std::pair<i32, i32>>;

struct entry_test : testing::Test {
    fake_scope fakes;
    std::array<image, ENTRY_DIGIT_COUNT> pictures = {};
    std::array<image *, ENTRY_DIGIT_COUNT> digits = {};
    number_entry *e = number_entry_create(4);

    entry_test() {
        for (std::size_t i = 0; i < digits.size(); ++i) {
            pictures[i].width = 10 + static_cast<i32>(i);
            pictures[i].height = 20;
            digits[i] = &pictures[i];
        }
        e->digits = digits.data();
        e->x = 600;
        e->y = 50;
        e->dest_x = 100;
        e->dest_y = 300;
    }
    ~entry_test() override { number_entry_free(e); }

    void type(const char *text) {
        for (const char *c = text; *c != '\0'; ++c)
            *c == '<' ? number_entry_backspace(e) : number_entry_add_digit(e, {500, 400, 41, 30}, *c - '0');
    }
    void update(int frames) {
        for (int i = 0; i < frames; ++i)
            number_entry_update(e);
    }
    // Where the digits stand, empty slots left out.
    places shown() const {
        places all;
        for (i32 i = 0; i < e->capacity; ++i)
            if (e->movers[i].glyph != nullptr)
                all.emplace_back(e->movers[i].x, e->movers[i].y);
        return all;
    }
};

TEST_F(entry_test, typed_digits_fly_into_a_row_and_on_when_entered) {
    for (const auto &[typed, text] : {std::pair{"00120", "120"}, {"12345", "1234"}, {"12<<<", ""}, {":", ""}}) {
        number_entry_clear(e);
        type(typed);
        EXPECT_STREQ(e->text, text);
    }
    type("705");
    EXPECT_EQ(shown(), (places{{512, 405}, {515, 405}, {513, 405}}));
    update(11);
    EXPECT_EQ(shown(), (places{{600, 50}, {619, 50}, {631, 50}}));
    type("<<<42");
    update(3);
    number_entry_submit(e, 42);
    EXPECT_EQ(shown(), (places{{600, 50}, {616, 50}})) << "they start from their places";
    type("7");
    number_entry_submit(e, 4);
    EXPECT_STREQ(e->text, "42");
    update(10);
    EXPECT_EQ(shown(), (places{{100, 300}, {116, 300}}));
    EXPECT_EQ(e->flags, ENTRY_ENTERED | ENTRY_CORRECT);
    update(1);
    EXPECT_EQ(e->flags, ENTRY_ENTERED | ENTRY_CORRECT | ENTRY_ARRIVED);
}

TEST_F(entry_test, a_digit_deleted_in_flight_is_not_waited_for) {
    type("42");
    number_entry_submit(e, 1);
    update(3);
    type("<");
    EXPECT_EQ(shown().size(), 1u);
    update(8);
    EXPECT_EQ(e->flags, ENTRY_ENTERED | ENTRY_ARRIVED);
}

TEST_F(entry_test, a_wrong_answer_scatters_to_the_border_and_clears) {
    // For each digit: which axis first, then its draws.
    fake_dice({1, 900, 1, /**/ 1, 799, 0, /**/ 0, 1, 1199, /**/ 0, 0, 0});
    type("1234");
    number_entry_submit(e, 1);
    update(20);
    number_entry_scatter(e);
    e->flags = (e->flags & ~(ENTRY_ENTERED | ENTRY_ARRIVED)) | ENTRY_CLOSED;
    number_entry_scatter(e); // once only
    EXPECT_EQ(fake_dice_drawn(), 12);
    update(10);
    places targets;
    for (i32 i = 0; i < e->capacity; ++i)
        targets.emplace_back(e->movers[i].target_x, e->movers[i].target_y);
    EXPECT_EQ(targets, (places{{100, 0}, {799, 600}, {0, 599}, {800, 0}}));
    update(1);
    EXPECT_TRUE(e->flags == 0 && number_entry_length(e) == 0 && shown().empty());
}

} // namespace
