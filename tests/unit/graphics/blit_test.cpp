// blit_test.cpp: pictures drawn by the commands, against a plain walk over every pixel.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "unit/graphics/stage.h"

#include <algorithm>

namespace {

template <class Pixel> struct blitting : testing::Test {
    using value = typename Pixel::value;
    static constexpr i32 EXTRA_PITCH = 12;

    stage on{Pixel::BITS, EXTRA_PITCH};
    std::mt19937 dice{7};
    std::vector<value> screen, background; // what they ought to hold
    image *picture = nullptr;

    void SetUp() override {
        scatter<Pixel>(dice);
        screen = screen_pixels<Pixel>();
        background = pixels_of<Pixel>(frames.background);
    }
    void TearDown() override { image_free(picture); }

    void new_picture() {
        image_free(picture);
        const bool large = pick(dice, 0, 9) == 0;
        picture = random_picture<Pixel>(dice, pick(dice, 1, large ? 900 : 40), pick(dice, 1, large ? 700 : 30));
    }

    // A corner that puts the picture inside, across an edge or outside.
    i32 place(i32 size, i32 limit) {
        const i32 edges[] = {pick(dice, 0, limit - 1), pick(dice, -size - 1, 1),
                             pick(dice, limit - size - 1, limit + 1)};
        return edges[pick(dice, 0, 2)];
    }

    bool opaque(i32 column, i32 row) const {
        return column >= 0 && column < picture->width &&
               reinterpret_cast<const value *>(picture->pixels)[row * picture->width + column] != key_pixel<Pixel>();
    }

    // Calls rule(pixel, picture's pixel, first of its run, last of its run) for what shows inside the box.
    template <class Rule> void reference(std::vector<value> &on_buffer, i32 x, i32 y, rect box, Rule rule) {
        for (i32 row = 0; row < picture->height; ++row)
            for (i32 column = 0; column < picture->width; ++column) {
                const i32 to_x = x + column, to_y = y + row;
                if (!opaque(column, row) || to_x < std::max(box.x, 0) ||
                    to_x >= std::min(box.x + box.w, SCREEN_WIDTH) || to_y < std::max(box.y, 0) ||
                    to_y >= std::min(box.y + box.h, SCREEN_HEIGHT))
                    continue;
                rule(on_buffer[static_cast<std::size_t>(to_y * SCREEN_WIDTH + to_x)],
                     reinterpret_cast<const value *>(picture->pixels)[row * picture->width + column],
                     !opaque(column - 1, row), !opaque(column + 1, row));
            }
    }

    ::testing::AssertionResult as_expected() {
        if (screen_pixels<Pixel>() != screen)
            return ::testing::AssertionFailure() << "screen differs";
        if (pixels_of<Pixel>(frames.background) != background)
            return ::testing::AssertionFailure() << "background differs";
        return ::testing::AssertionSuccess();
    }
};

using both_depths = testing::Types<pixel16, pixel32>;
TYPED_TEST_SUITE(blitting, both_depths);

TYPED_TEST(blitting, plain_and_clipped_copies_match_a_plain_walk) {
    using pixel = typename TypeParam::value;
    const auto copy = [](pixel &to, pixel from, bool, bool) { to = from; };
    for (i32 round = 0; round < 120; ++round) {
        this->new_picture();
        const i32 x = this->place(this->picture->width, SCREEN_WIDTH),
                  y = this->place(this->picture->height, SCREEN_HEIGHT);
        const i32 near_x = x + pick(this->dice, -20, 20), near_y = y + pick(this->dice, -20, 20);
        const rect clip = {near_x, near_y, pick(this->dice, -2, 60), pick(this->dice, -2, 60)};
        const rect pushed = {std::max(clip.x, 0), std::max(clip.y, 0), clip.w, clip.h};
        const bool to_background = pick(this->dice, 0, 1) == 1, clipped = pick(this->dice, 0, 1) == 1;
        this->on.show([&] {
            const image_clipped_operands op = {this->picture, x, y, clip};
            if (clipped)
                draw_list_add(to_background ? DRAW_IMAGE_CLIPPED_BG : DRAW_IMAGE_CLIPPED, &op);
            else
                draw_list_add(to_background ? DRAW_IMAGE_BG : DRAW_IMAGE, &op);
        });
        this->reference(to_background ? this->background : this->screen, x, y, clipped ? pushed : WHOLE_SCREEN, copy);
        ASSERT_TRUE(this->as_expected()) << "round " << round << " at " << x << ", " << y
                                         << (clipped ? " clipped" : "");
    }
}

TYPED_TEST(blitting, modes_match_a_plain_walk) {
    using pixel = typename TypeParam::value;
    constexpr u32 RULES[] = {0,
                             BLIT_FILL,
                             BLIT_TINT,
                             BLIT_NOISE,
                             BLIT_OR,
                             BLIT_HALF,
                             BLIT_FILL | BLIT_TINT,
                             BLIT_TINT | BLIT_NOISE,
                             BLIT_NOISE | BLIT_OR,
                             BLIT_OR | BLIT_HALF};
    for (u32 round = 0; round < 240; ++round) {
        this->new_picture();
        image_ex_operands op{};
        op.picture = this->picture;
        op.x = this->place(this->picture->width, SCREEN_WIDTH);
        op.y = this->place(this->picture->height, SCREEN_HEIGHT);
        op.colour_a = pick_colour(this->dice);
        op.colour_a.g = round % 3 == 0 ? 0 : op.colour_a.g;
        op.colour_b = pick_colour(this->dice);
        const u32 rule = RULES[round % std::size(RULES)];
        op.mode = rule | (this->dice() & (BLIT_EDGE | BLIT_TO_BG | BLIT_SOURCE_RECT));
        op.source.x = pick(this->dice, 0, this->picture->width - 1);
        op.source.y = pick(this->dice, 0, this->picture->height - 1);
        op.source.w = pick(this->dice, 1, this->picture->width - op.source.x);
        op.source.h = pick(this->dice, 1, this->picture->height - op.source.y);
        std::srand(round);
        this->on.show([&] { draw_record<DRAW_IMAGE_EX>(op); });

        std::srand(round);
        const auto random = [](u8 limit) { return limit == 0 ? u8{0} : static_cast<u8>(std::rand() % limit); };
        const auto paint = [&](pixel &to, pixel from, bool first, bool last) {
            const pixel colour = TypeParam::from_rgb(op.colour_a);
            if (rule & BLIT_FILL)
                to = colour;
            else if (rule & BLIT_TINT)
                to = TypeParam::blend_half(to, colour);
            else if (rule & BLIT_NOISE) {
                const u8 r = random(op.colour_a.r), g = random(op.colour_a.g), b = random(op.colour_a.b);
                to = TypeParam::from_rgb({r, g, b});
            } else if (rule & BLIT_OR)
                to = TypeParam::or_rgb(to, op.colour_a);
            else
                to = rule & BLIT_HALF ? TypeParam::blend_half(to, from) : from;
            if ((op.mode & BLIT_EDGE) && (first || last))
                to = TypeParam::from_rgb(op.colour_b);
        };
        auto &buffer = op.mode & BLIT_TO_BG ? this->background : this->screen;
        if (op.mode & BLIT_SOURCE_RECT) {
            const rect part = {op.x, op.y, op.source.w, op.source.h};
            this->reference(buffer, op.x - op.source.x, op.y - op.source.y, part, paint);
        } else {
            this->reference(buffer, op.x, op.y, WHOLE_SCREEN, paint);
        }
        ASSERT_TRUE(this->as_expected()) << "round " << round << " mode " << op.mode << " at " << op.x << ", " << op.y;
    }
}

TYPED_TEST(blitting, primitives_match_a_plain_walk) {
    using pixel = typename TypeParam::value;
    const auto each = [](std::vector<pixel> &buffer, rect area, auto rule) {
        for (i32 y = std::max(area.y, 0); y < std::min(area.y + area.h, SCREEN_HEIGHT); ++y)
            for (i32 x = std::max(area.x, 0); x < std::min(area.x + area.w, SCREEN_WIDTH); ++x)
                rule(buffer[static_cast<std::size_t>(y * SCREEN_WIDTH + x)], x, y);
    };
    for (i32 round = 0; round < 100; ++round) {
        const rect area = {this->place(50, SCREEN_WIDTH), this->place(40, SCREEN_HEIGHT), pick(this->dice, -1, 50),
                           pick(this->dice, -1, 40)};
        const rgb colour = pick_colour(this->dice);
        const pixel painted = TypeParam::from_rgb(colour);
        const fill_operands fill = {area, colour, 0, 1};
        this->on.show([&] {
            draw_list_add(round % 2 ? DRAW_DARKEN : DRAW_DARKEN_BG, &area);
            draw_record<DRAW_FILL_BG>({{area.x + 9, area.y, area.w, area.h}, colour, 0, 0});
            draw_frame(area, colour, true);
            draw_record<DRAW_PIXEL>({area.x - 3, area.y - 3, colour, 0, 1});
            draw_record<DRAW_FILL>({{area.x, area.y + 60, area.w, area.h}, fill.colour, 0, fill.dirty});
            draw_store_bg({area.x, area.y + 55, area.w, area.h});
        });
        each(round % 2 ? this->screen : this->background, area, [](pixel &to, i32, i32) { to = TypeParam::halve(to); });
        each(this->background, {area.x + 9, area.y, area.w, area.h}, [&](pixel &to, i32, i32) { to = painted; });
        each(this->screen, area, [&](pixel &to, i32 x, i32 y) {
            const bool side = x == area.x || x == area.x + area.w - 1, end = y == area.y || y == area.y + area.h - 1;
            to = side || end ? painted : to;
        });
        each(this->screen, {area.x - 3, area.y - 3, 1, 1}, [&](pixel &to, i32, i32) { to = painted; });
        each(this->screen, {area.x, area.y + 60, area.w, area.h}, [&](pixel &to, i32, i32) { to = painted; });
        each(this->background, {area.x, area.y + 55, area.w, area.h},
             [&](pixel &to, i32 x, i32 y) { to = this->screen[static_cast<std::size_t>(y * SCREEN_WIDTH + x)]; });
        ASSERT_TRUE(this->as_expected()) << "round " << round << " at " << area.x << ", " << area.y;
    }
}

TYPED_TEST(blitting, lines_leave_out_their_end_and_bend_onto_the_edge) {
    using pixel = typename TypeParam::value;
    constexpr i32 ROWS[][4] = {
        {10, 10, 13, 10},     {-20, 5, 5, 5},   {5, 5, 5, 5},         {0, 0, 799, 599},   {799, 599, 0, 0},
        {100, 300, 110, 304}, {9, 9, 0, 0},     {400, 590, 403, 640}, {790, -5, 900, 20}, {50, 80, 47, 60},
        {-9, -9, -1, -1},     {60, 20, 30, 22}, {799, 0, 799, 599},
    };
    for (const auto &[x0, y0, x1, y1] : ROWS) {
        this->on.show([&] { draw_line(x0, y0, x1, y1, YELLOW, true); });
        i32 x = std::clamp(x0, 0, 799), y = std::clamp(y0, 0, 599), error = 0;
        const i32 to_x = std::clamp(x1, 0, 799), to_y = std::clamp(y1, 0, 599);
        const i32 dx = to_x - x, dy = to_y - y, sx = dx > 0 ? 1 : -1, sy = dy > 0 ? 1 : -1;
        const bool steep = std::abs(dx) <= std::abs(dy);
        while (steep ? y != to_y : x != to_x) {
            this->screen[static_cast<std::size_t>(y * SCREEN_WIDTH + x)] = TypeParam::from_rgb(YELLOW);
            (steep ? y : x) += steep ? sy : sx;
            error += std::abs(steep ? dx : dy);
            for (; error >= std::abs(steep ? dy : dx); error -= std::abs(steep ? dy : dx))
                (steep ? x : y) += steep ? sx : sy;
        }
        ASSERT_TRUE(this->as_expected()) << x0 << ", " << y0 << " to " << x1 << ", " << y1;
    }
    EXPECT_EQ((screen_pixel<TypeParam>(12, 10)), static_cast<pixel>(TypeParam::from_rgb(YELLOW)));
    EXPECT_NE((screen_pixel<TypeParam>(13, 10)), static_cast<pixel>(TypeParam::from_rgb(YELLOW)));
}

TYPED_TEST(blitting, noise_stays_below_its_limits_and_inside_its_rectangle) {
    this->on.show([] {
        draw_record<DRAW_FILL_BG>({WHOLE_SCREEN, WHITE, 0, 0});
        draw_record<DRAW_PUSH_BG>({});
        draw_record<DRAW_NOISE_BG>({{-5, 590, 20, 30}, {64, 1, 200}, 0});
    });
    const auto noisy = pixels_of<TypeParam>(frames.background);
    u8 highest = 0;
    for (i32 i = 0; i < SCREEN_WIDTH * SCREEN_HEIGHT; ++i) {
        const auto [r, g, b] = TypeParam::to_rgb(noisy[static_cast<std::size_t>(i)]);
        const bool inside = i % SCREEN_WIDTH < 20 && i / SCREEN_WIDTH >= 590;
        ASSERT_EQ(inside, g == 0) << i;
        ASSERT_TRUE(!inside || (r < 64 && b < 200)) << i;
        highest = inside ? std::max(highest, b) : highest;
    }
    EXPECT_GT(highest, 100);
    this->on.show([] { draw_record<DRAW_POP_BG>({}); });
    EXPECT_EQ(TypeParam::to_rgb(pixels_of<TypeParam>(frames.background)[590 * SCREEN_WIDTH]).g & 0xF8, 0xF8);
}

} // namespace
