// blit_test.cpp: pictures and primitives drawn by the commands, against a plain walk over every pixel.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "unit/graphics/stage.h"

#include <algorithm>

namespace {

rect overlap(const rect &a, const rect &b) {
    const i32 x = std::max(a.x, b.x), y = std::max(a.y, b.y);
    return {x, y, std::min(a.x + a.w, b.x + b.w) - x, std::min(a.y + a.h, b.y + b.h) - y};
}

template <class Pixel> typename Pixel::value half_of(typename Pixel::value pixel) {
    return static_cast<typename Pixel::value>((pixel >> 1) & Pixel::HALF_MASK);
}
template <class Pixel> typename Pixel::value rgb_of(u32 pixel) {
    return static_cast<typename Pixel::value>(pixel & Pixel::RGB_MASK);
}

template <class Pixel> struct blitting : testing::Test {
    using value = typename Pixel::value;

    stage on{Pixel::BITS, 12};
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
        const bool large = pick(dice, 0, 19) == 0;
        picture = random_picture<Pixel>(dice, pick(dice, 1, large ? 900 : 40), pick(dice, 1, large ? 700 : 30));
    }

    // Inside, across an edge or outside.
    i32 place(i32 size, i32 limit) {
        const i32 low[] = {0, -size - 1, limit - size - 1}, high[] = {limit - 1, 1, limit + 1};
        const i32 kind = pick(dice, 0, 2);
        return pick(dice, low[kind], high[kind]);
    }

    value at(i32 column, i32 row) const {
        return column < 0 || column >= picture->width
                   ? key_pixel<Pixel>()
                   : reinterpret_cast<const value *>(picture->pixels)[row * picture->width + column];
    }

    // Calls rule(pixel, x, y) for what of the area lies in the window.
    template <class Rule> void each(std::vector<value> &buffer, const rect &area, Rule rule) {
        const rect inside = overlap(area, WHOLE_SCREEN);
        for (i32 y = inside.y; y < inside.y + inside.h; ++y)
            for (i32 x = inside.x; x < inside.x + inside.w; ++x)
                rule(buffer[static_cast<std::size_t>(y * SCREEN_WIDTH + x)], x, y);
    }

    // Calls rule(pixel, picture's pixel, first or last of its run) for what of the picture shows inside the box.
    template <class Rule> void each_drawn(std::vector<value> &buffer, i32 x, i32 y, const rect &box, Rule rule) {
        const value key = key_pixel<Pixel>();
        each(buffer, overlap(box, {x, y, picture->width, picture->height}), [&](value &to, i32 to_x, i32 to_y) {
            const i32 column = to_x - x, row = to_y - y;
            if (at(column, row) != key)
                rule(to, at(column, row), at(column - 1, row) == key || at(column + 1, row) == key);
        });
    }

    bool as_expected() { return screen_pixels<Pixel>() == screen && pixels_of<Pixel>(frames.background) == background; }
};

using both_depths = testing::Types<pixel16, pixel32>;
TYPED_TEST_SUITE(blitting, both_depths);

TYPED_TEST(blitting, plain_and_clipped_copies_match_a_plain_walk) {
    auto &rng = this->dice;
    for (i32 round = 0; round < 100; ++round) {
        this->new_picture();
        const i32 x = this->place(this->picture->width, SCREEN_WIDTH);
        const i32 y = this->place(this->picture->height, SCREEN_HEIGHT);
        const rect clip = {x + pick(rng, -20, 20), y + pick(rng, -20, 20), pick(rng, -2, 60), pick(rng, -2, 60)};
        const rect pushed = {std::max(clip.x, 0), std::max(clip.y, 0), clip.w, clip.h};
        const bool to_background = pick(rng, 0, 1) == 1, clipped = pick(rng, 0, 1) == 1;
        const draw_opcode PLAIN[] = {DRAW_IMAGE, DRAW_IMAGE_BG},
                          CLIPPED[] = {DRAW_IMAGE_CLIPPED, DRAW_IMAGE_CLIPPED_BG};
        const image_clipped_operands op = {this->picture, x, y, clip}; // begins as those of the plain ones
        this->on.show([&] { draw_list_add((clipped ? CLIPPED : PLAIN)[to_background], &op); });
        this->each_drawn(to_background ? this->background : this->screen, x, y, clipped ? pushed : WHOLE_SCREEN,
                         [](auto &to, auto from, bool) { to = from; });
        ASSERT_TRUE(this->as_expected()) << "round " << round << " at " << x << ", " << y;
    }
}

TYPED_TEST(blitting, modes_match_a_plain_walk) {
    constexpr u32 RULES[] = {0, BLIT_FILL, BLIT_TINT, BLIT_NOISE, BLIT_OR, BLIT_HALF,
                             // of two rules the first of this order holds
                             BLIT_FILL | BLIT_TINT, BLIT_TINT | BLIT_NOISE, BLIT_NOISE | BLIT_OR, BLIT_OR | BLIT_HALF};
    auto &rng = this->dice;
    for (u32 round = 0; round < 160; ++round) {
        this->new_picture();
        const i32 width = this->picture->width, height = this->picture->height;
        const u32 rule = RULES[round % std::size(RULES)];
        image_ex_operands op = {this->picture,
                                this->place(width, SCREEN_WIDTH),
                                this->place(height, SCREEN_HEIGHT),
                                rule | (static_cast<u32>(rng()) & (BLIT_EDGE | BLIT_TO_BG | BLIT_SOURCE_RECT)),
                                pick_colour(rng),
                                pick_colour(rng),
                                {},
                                {pick(rng, 0, width - 1), pick(rng, 0, height - 1), 0, 0}};
        op.source.w = pick(rng, 1, width - op.source.x);
        op.source.h = pick(rng, 1, height - op.source.y);
        if (round % 3 == 0)
            op.colour_a.g = 0;
        std::srand(round);
        this->on.show([&] { draw_record<DRAW_IMAGE_EX>(op); });

        std::srand(round);
        const auto random = [](u8 limit) { return limit == 0 ? u8{0} : static_cast<u8>(std::rand() % limit); };
        const auto colour = TypeParam::from_rgb(op.colour_a);
        const auto paint = [&](auto &to, auto from, bool edge) {
            if (rule & BLIT_FILL)
                to = colour;
            else if (rule & BLIT_TINT)
                to = rgb_of<TypeParam>(half_of<TypeParam>(to) + half_of<TypeParam>(colour));
            else if (rule & BLIT_NOISE) {
                const u8 r = random(op.colour_a.r), g = random(op.colour_a.g);
                to = TypeParam::from_rgb({r, g, random(op.colour_a.b)});
            } else if (rule & BLIT_OR)
                to = rgb_of<TypeParam>(to | colour);
            else
                to = rule & BLIT_HALF ? rgb_of<TypeParam>(half_of<TypeParam>(to) + half_of<TypeParam>(from)) : from;
            if ((op.mode & BLIT_EDGE) && edge)
                to = TypeParam::from_rgb(op.colour_b);
        };
        const bool part = op.mode & BLIT_SOURCE_RECT;
        this->each_drawn(op.mode & BLIT_TO_BG ? this->background : this->screen, part ? op.x - op.source.x : op.x,
                         part ? op.y - op.source.y : op.y,
                         part ? rect{op.x, op.y, op.source.w, op.source.h} : WHOLE_SCREEN, paint);
        ASSERT_TRUE(this->as_expected()) << "round " << round << " mode " << op.mode << " at " << op.x << ", " << op.y;
    }
}

TYPED_TEST(blitting, primitives_match_a_plain_walk) {
    auto &rng = this->dice;
    for (u32 round = 0; round < 60; ++round) {
        const rect area = {this->place(50, SCREEN_WIDTH), this->place(40, SCREEN_HEIGHT), pick(rng, -1, 50),
                           pick(rng, -1, 40)};
        const auto moved = [area](i32 x, i32 y) { return rect{area.x + x, area.y + y, area.w, area.h}; };
        const rgb colour = pick_colour(rng);
        const auto pixel = TypeParam::from_rgb(colour);
        std::srand(round);
        this->on.show([&] {
            draw_list_add(round % 2 ? DRAW_DARKEN : DRAW_DARKEN_BG, &area);
            draw_record<DRAW_NOISE_BG>({{-9, 30, 30, 4}, {64, 1, 200}, 0});
            draw_record<DRAW_FILL_BG>({moved(9, 0), colour, 0, 0});
            draw_record<DRAW_PUSH_BG>({});
            draw_record<DRAW_FILL_BG>({WHOLE_SCREEN, colour, 0, 0});
            draw_record<DRAW_POP_BG>({});
            draw_frame(area, colour, true);
            draw_record<DRAW_PIXEL>({area.x - 3, area.y - 3, colour, 0, 1});
            draw_fill(moved(0, 60), colour, true);
            draw_save(moved(3, 62), 1);
            draw_fill(moved(3, 62), WHITE, true);
            draw_restore_saved(1); // what lay there
            draw_store_bg(moved(0, 55));
        });
        std::srand(round);
        this->each(round % 2 ? this->screen : this->background, area,
                   [](auto &to, i32, i32) { to = half_of<TypeParam>(to); });
        this->each(this->background, {0, 30, 30, 4}, [](auto &to, i32, i32) {
            const auto red = static_cast<u8>(std::rand() % 64);
            to = TypeParam::from_rgb({red, 0, static_cast<u8>(std::rand() % 200)});
        });
        const auto paint = [pixel](auto &to, i32, i32) { to = pixel; };
        this->each(this->background, moved(9, 0), paint);
        this->each(this->screen, area, [&](auto &to, i32 x, i32 y) {
            const bool side = x == area.x || x == area.x + area.w - 1, end = y == area.y || y == area.y + area.h - 1;
            to = side || end ? pixel : to;
        });
        this->each(this->screen, {area.x - 3, area.y - 3, 1, 1}, paint);
        this->each(this->screen, moved(0, 60), paint);
        this->each(this->background, moved(0, 55),
                   [&](auto &to, i32 x, i32 y) { to = this->screen[static_cast<std::size_t>(y * SCREEN_WIDTH + x)]; });
        ASSERT_TRUE(this->as_expected()) << "round " << round << " at " << area.x << ", " << area.y;
    }
}

TYPED_TEST(blitting, lines_leave_out_their_end_and_bend_onto_the_edge) {
    auto &rng = this->dice;
    for (i32 round = 0; round < 60; ++round) {
        const i32 reach = round % 3 == 0 ? 5 : 900;
        const i32 x = this->place(0, SCREEN_WIDTH), y = this->place(0, SCREEN_HEIGHT);
        const i32 to_x = x + pick(rng, -reach, reach), to_y = y + pick(rng, -reach, reach);
        this->on.show([&] { draw_line(x, y, to_x, to_y, YELLOW, true); });
        const i32 left = std::clamp(x, 0, 799), top = std::clamp(y, 0, 599);
        const i32 dx = std::clamp(to_x, 0, 799) - left, dy = std::clamp(to_y, 0, 599) - top;
        const i32 length = std::max(std::abs(dx), std::abs(dy));
        for (i32 i = 0; i < length; ++i)
            this->each(this->screen, {left + dx * i / length, top + dy * i / length, 1, 1},
                       [](auto &to, i32, i32) { to = TypeParam::from_rgb(YELLOW); });
        ASSERT_TRUE(this->as_expected()) << x << ", " << y << " to " << to_x << ", " << to_y;
    }
}

} // namespace
