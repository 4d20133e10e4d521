// effects.cpp: the flare, the burning cards and the confetti.
//
// The game draws flare and burn three quarters opaque over whatever lies there, paper, board or card, so
// both carry their own darker border. Everything random comes from fixed seeds: the same program always
// draws the same pictures.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "palette.h"
#include "save.h"
#include "sets.h"
#include "sprites/effect_pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace art {

namespace {

constexpr double PI = std::numbers::pi;
constexpr rgb WHITE = {1, 1, 1};
constexpr rgb SPARK_WHITE = hex(0xFFFBE0), SPARK_YELLOW = hex(0xFFE45C), SPARK_GOLD = hex(0xFFB42E),
              SPARK_ORANGE = hex(0xEE7A1A);

// Evenly spread numbers; the engine's sequence is the same on every machine, unlike the library's
// distributions.
struct chance {
    std::minstd_rand engine;
    double between(double low, double high) {
        return low + (high - low) * static_cast<double>(engine()) / static_cast<double>(std::minstd_rand::max());
    }
};

// A star with `spikes` points at distance `outer`; every second one is `second` times as long.
void star_path(cairo_t *cr, double cx, double cy, double outer, double inner, int spikes, double second, double turn) {
    cairo_new_sub_path(cr);
    for (int i = 0; i < 2 * spikes; ++i) {
        const double reach = i % 2 == 1 ? inner : i % 4 == 0 ? outer : outer * second;
        const double angle = turn + PI * i / spikes;
        cairo_line_to(cr, cx + reach * std::sin(angle), cy - reach * std::cos(angle));
    }
    cairo_close_path(cr);
}

// --- Flare ---------------------------------------------------------------------------------------

constexpr int FLARE_SIZES[FLARE_SET.count] = {16, 26, 36, 46, 56}; // pixels
constexpr int FLARE_SPIKES = 8;
constexpr double FLARE_SECOND = 0.68, FLARE_INNER = 0.40, FLARE_TURN = 0.12; // of the radius; radians
constexpr double FLARE_LINE = 0.04;                                          // of the size
constexpr double SATELLITES_FROM = 40, SATELLITE_PLACE = 0.80, SATELLITE_SIZE = 0.115;

void draw_flare(cairo_t *cr, double size) {
    const double centre = size / 2, radius = centre - 1.5;
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_pattern_t *glow = cairo_pattern_create_radial(centre, centre, 0, centre, centre, radius);
    const auto stop = [&](double at, rgb c) { cairo_pattern_add_color_stop_rgb(glow, at, c.r, c.g, c.b); };
    stop(0.0, WHITE);
    stop(0.28, SPARK_WHITE);
    stop(0.55, SPARK_YELLOW);
    stop(1.0, SPARK_GOLD);
    star_path(cr, centre, centre, radius, radius * FLARE_INNER, FLARE_SPIKES, FLARE_SECOND, FLARE_TURN);
    cairo_set_source(cr, glow);
    cairo_fill_preserve(cr);
    cairo_pattern_destroy(glow);
    stroke(cr, SPARK_ORANGE, std::clamp(size * FLARE_LINE, 1.0, 1.5));
    for (int i = 0; size >= SATELLITES_FROM && i < FLARE_SPIKES; ++i) {
        // Between the rays, a little nearer where the short ones end.
        const double angle = FLARE_TURN + 2 * PI * (i + 0.5) / FLARE_SPIKES;
        const double x = centre + radius * SATELLITE_PLACE * std::sin(angle);
        const double y = centre - radius * SATELLITE_PLACE * std::cos(angle);
        star_path(cr, x, y, radius * SATELLITE_SIZE + 1, radius * SATELLITE_SIZE / 2, 4, 1, 0);
        fill_keep(cr, SPARK_YELLOW);
        stroke(cr, SPARK_ORANGE, 1);
    }
}

void make_flare() {
    int number = 0;
    for (const int size : FLARE_SIZES) {
        canvas picture(size, size);
        draw_flare(picture, size);
        save(picture, entry_of(FLARE_SET, number++), {.dither = true});
    }
}

// --- Burn ----------------------------------------------------------------------------------------

constexpr double FRONT_FRAMES = 12.5; // in which the front travels from the bottom to the top
constexpr double FRONT_LEAD = 3;      // pixels that are gone in the first frame
constexpr double WAVE = 2.6;          // height of the front's unevenness, pixels
constexpr double CARD_RADIUS = 6;
constexpr double SPARK_LIFE_MIN = 3, SPARK_LIFE_MAX = 8;    // frames
constexpr double PIXELS_PER_SPARK = 105;                    // few and large: many small ones look like dirt
constexpr double SPARK_SMALLEST = 1.9, SPARK_LARGEST = 4.6; // how far its points reach, pixels
constexpr double SPARK_WAIST = 0.36;                        // of that

struct spark {
    double x, y, vx, vy; // pixels, pixels a frame
    double born, life;   // frames
    double size, turn;
};

struct burn {
    int width, height;
    std::vector<spark> sparks;
};

// The front's height at x in a frame; the card is gone below it.
double front(const burn &b, double x, double frame) {
    const double wave = std::sin(x * 0.31 + frame * 0.9) + 0.6 * std::sin(x * 0.67 - frame * 1.3 + 2);
    return b.height - FRONT_LEAD - (b.height + WAVE) * frame / FRONT_FRAMES + WAVE * wave / 1.6;
}

burn light_burn(int width, int height) {
    burn b = {.width = width, .height = height, .sparks = {}};
    chance c;
    constexpr double golden_ratio = std::numbers::phi;
    const auto count = static_cast<int>(width * height / PIXELS_PER_SPARK);
    for (int i = 0; i < count; ++i) {
        const double born = FRONT_FRAMES * i / count;
        const double x = std::fmod(i * golden_ratio, 1.0) * b.width; // keeps apart sparks of like age
        b.sparks.push_back({.x = x,
                            .y = front(b, x, born),
                            .vx = (x - width / 2.0) / width * 1.4 + c.between(-0.4, 0.4),
                            .vy = c.between(-0.4, 1.6),
                            .born = born,
                            .life = c.between(SPARK_LIFE_MIN, SPARK_LIFE_MAX),
                            .size = c.between(SPARK_SMALLEST, SPARK_LARGEST),
                            .turn = c.between(0, PI / 8)});
    }
    return b;
}

void draw_card(cairo_t *cr, const burn &b) {
    rounded_rect(cr, 0, 0, b.width, b.height, CARD_RADIUS);
    fill(cr, WOOD_SHADE);
    rounded_rect(cr, 1, 1, b.width - 2, b.height - 2, CARD_RADIUS - 1);
    fill(cr, CREAM_SHADE);
    rounded_rect(cr, 1, 1, b.width - 3, b.height - 3, CARD_RADIUS - 1);
    fill(cr, CREAM_LIGHT);
    rounded_rect(cr, 2, 2, b.width - 4, b.height - 4, CARD_RADIUS - 2);
    fill(cr, CREAM);
}

void front_path(cairo_t *cr, const burn &b, double frame) {
    for (int x = -1; x <= b.width + 1; ++x)
        cairo_line_to(cr, x, front(b, x, frame));
}

void draw_burning_card(cairo_t *cr, const burn &b, double frame) {
    struct band {
        rgb colour;
        double width, alpha;
    };
    constexpr band bands[] = {
        {SPARK_GOLD, 15, 0.35}, {SPARK_GOLD, 10, 0.6}, {SPARK_ORANGE, 6.4, 1},
        {SPARK_YELLOW, 4, 1},   {SPARK_WHITE, 1.6, 1},
    };
    cairo_push_group(cr);
    front_path(cr, b, frame);
    cairo_line_to(cr, b.width + 1, -WAVE);
    cairo_line_to(cr, -1, -WAVE);
    cairo_close_path(cr);
    cairo_clip(cr);
    draw_card(cr, b);
    // The bands colour only what is card, so its corners stay round.
    cairo_set_operator(cr, CAIRO_OPERATOR_ATOP);
    for (const band &each : bands) {
        front_path(cr, b, frame);
        stroke(cr, each.colour, each.width, each.alpha);
    }
    cairo_pop_group_to_source(cr);
    cairo_paint(cr);
}

rgb spark_colour(double age) {
    constexpr std::array cooling = {SPARK_WHITE, SPARK_WHITE, SPARK_YELLOW, SPARK_GOLD};
    const double place = std::clamp(age, 0.0, 0.999) * (cooling.size() - 1);
    const auto step = static_cast<std::size_t>(place);
    return mix(cooling[step], cooling[step + 1], place - std::floor(place));
}

void draw_spark(cairo_t *cr, const spark &s, double frame) {
    const double age = (frame - s.born) / s.life;
    if (age < 0 || age >= 1)
        return;
    const double since = frame - s.born;
    const double x = s.x + s.vx * since, y = s.y + s.vy * since, size = s.size * (1.1 - 0.6 * age);
    star_path(cr, x, y, size + 1, (size + 1) * SPARK_WAIST, 4, 1, s.turn);
    stroke(cr, SPARK_ORANGE, 1.2);
    star_path(cr, x, y, size + 1, (size + 1) * SPARK_WAIST, 4, 1, s.turn);
    fill(cr, spark_colour(age));
}

void make_burn(const picture_set &set, int width, int height) {
    const burn b = light_burn(width, height);
    for (int frame = 0; frame < set.count; ++frame) {
        canvas picture(width, height);
        draw_burning_card(picture, b, frame);
        for (const spark &s : b.sparks)
            draw_spark(picture, s, frame);
        save(picture, entry_of(set, frame), {.dither = true});
    }
}

// --- Confetti ------------------------------------------------------------------------------------

constexpr rgb PAPERS[CONFETTI_COLOURS] = {
    hex(0xE5413A), hex(0xF08A24), hex(0xF8DE4A), hex(0xC7DE4B), hex(0x7FC97A),
    hex(0x35A866), hex(0x2FB6A8), hex(0x52B6EE), hex(0x3F6FD8), hex(0x7C57D0),
    hex(0xB558D0), hex(0xF7A6CB), hex(0xE0558A), hex(0xFFFFFF), hex(0xB8F0DC),
};
constexpr int CONFETTI_SIZE = 9; // an odd size has a middle pixel to turn about

struct scrap {
    double length, width; // pixels
};
constexpr scrap SCRAPS[] = {{7.4, 4.8}, {5.8, 5.4}, {8.4, 3.4}};

// How the scrap looks at each step of its turn: breadth left, further tilt in radians, change of lightness.
struct turn_step {
    double breadth, tilt, lightness;
};
constexpr turn_step TURN[CONFETTI_FLUTTER] = {
    {1.00, 0.00, 0.00},
    {0.74, 0.16, 0.07},
    {0.48, 0.34, -0.05},
    {0.28, 0.52, -0.12},
};

void draw_scrap(cairo_t *cr, int colour, const turn_step &step) {
    constexpr double golden_angle = 2.39996; // spreads the tilts of any number of colours evenly
    const scrap &s = SCRAPS[static_cast<std::size_t>(colour) % std::size(SCRAPS)];
    const rgb front_colour = PAPERS[colour];
    const double breadth = std::max(s.width * step.breadth, 1.5);
    cairo_translate(cr, CONFETTI_SIZE / 2.0, CONFETTI_SIZE / 2.0);
    cairo_rotate(cr, golden_angle * colour + step.tilt);
    cairo_rectangle(cr, -s.length / 2, -breadth / 2, s.length, breadth);
    fill(cr, lighten(front_colour, step.lightness));
}

void make_confetti() {
    for (int colour = 0; colour < CONFETTI_COLOURS; ++colour) {
        for (int frame = 0; frame < CONFETTI_FLUTTER; ++frame) {
            canvas picture(CONFETTI_SIZE, CONFETTI_SIZE);
            draw_scrap(picture, colour, TURN[frame]);
            save(picture, entry_of(CONFETTI_SET, CONFETTI_FLUTTER * colour + frame), {.threshold = 0.45});
        }
    }
}

} // namespace

void make_effects() {
    make_flare();
    make_burn(BURN_SMALL_SET, 52, 42);
    make_burn(BURN_LARGE_SET, 75, 70);
    make_confetti();
}

} // namespace art
