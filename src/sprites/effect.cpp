// effect.cpp: flare, burn and confetti, driven by one table of operations.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/effect.h"

#include "core/base/log.h"
#include "core/base/random.h"
#include "graphics/draw_list.h"
#include "sprites/effect_pictures.h"
#include "sprites/motion.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

constexpr i32 FRAMES_PER_PICTURE = 2;

enum flare_phase : i32 { FLARE_GROWING, FLARE_SHRINKING };
constexpr i32 FLARE_SHRINK_FRAMES = 1; // a picture, on the way back

constexpr i32 BURN_RISE = 2; // pixels with each picture

constexpr i32 CONFETTI_PHASES = 2 * (CONFETTI_FLUTTER - 1); // there and back
constexpr i32 CONFETTI_SWAY = 50;                           // largest sideways speed, hundredths of a pixel per frame
constexpr i32 CONFETTI_FALL_MIN = 100, CONFETTI_FALL_MAX = 300; // likewise
constexpr i32 CONFETTI_MARGIN = 50; // pixels between the window's sides and where pieces start
constexpr i32 CONFETTI_TURN_MIN = 2, CONFETTI_TURN_RANGE = 5; // frames a picture shows: 2..6

// All the pictures, shared by all effects; null until loaded.
image *flare_pictures[FLARE_SET.count];
image *burn_small_pictures[BURN_SMALL_SET.count];
image *burn_large_pictures[BURN_LARGE_SET.count];
image *confetti_pictures[CONFETTI_SET.count];

void set_picture(effect *e, i32 frame) {
    e->picture = e->frames[frame];
    e->w = e->picture->width;
    e->h = e->picture->height;
}

void set_picture_keeping_centre(effect *e, i32 frame, bool vertically) {
    const i32 w = e->w, h = e->h;
    set_picture(e, frame);
    e->x = centre_in(e->x, w, e->w);
    if (vertically)
        e->y = centre_in(e->y, h, e->h);
}

// The start of every kind: its first picture stands for two frames.
void show_from(effect *e, const image *const *frames, i32 frame) {
    e->timer = FRAMES_PER_PICTURE;
    e->frames = frames;
    e->frame = frame;
    set_picture(e, frame);
}

void draw_blended(const effect *e) {
    // Twice half and half leaves the picture three quarters opaque.
    draw_image_ex(e->picture, e->x, e->y, BLIT_HALF, BLACK);
    draw_image_ex(e->picture, e->x, e->y, BLIT_HALF, BLACK);
    draw_restore_next({e->x, e->y, e->w, e->h});
}

void draw_plain(const effect *e) {
    draw_image(e->picture, e->x, e->y, true);
}

// --- Flare: grows through its pictures, waits, and shrinks back twice as fast ---------------------

i32 flare_load() {
    return image_load_sequence(flare_pictures, FLARE_SET);
}

void flare_unload() {
    image_free_array(flare_pictures, FLARE_SET.count);
}

void flare_start(effect *e) {
    show_from(e, flare_pictures, 0);
    e->phase = FLARE_GROWING;
}

void flare_update(effect *e) {
    if (--e->timer > 0)
        return;
    if (e->phase == FLARE_GROWING) {
        e->timer = FRAMES_PER_PICTURE;
        if (++e->frame == FLARE_SET.count)
            e->phase = FLARE_SHRINKING;
        else
            set_picture_keeping_centre(e, e->frame, true);
        return;
    }
    e->timer = FLARE_SHRINK_FRAMES;
    if (--e->frame >= 0)
        set_picture_keeping_centre(e, e->frame, true);
    else
        e->flags |= EFFECT_FINISHED;
}

// --- Burn: rises as it burns out -----------------------------------------------------------------

i32 burn_load() {
    const i32 loaded = image_load_sequence(burn_small_pictures, BURN_SMALL_SET);
    return loaded < 0 ? loaded : image_load_sequence(burn_large_pictures, BURN_LARGE_SET);
}

void burn_unload() {
    image_free_array(burn_small_pictures, BURN_SMALL_SET.count);
    image_free_array(burn_large_pictures, BURN_SMALL_SET.count);
}

void burn_start(effect *e) {
    show_from(e, burn_small_pictures, 0);
}

void burn_update(effect *e) {
    if (--e->timer > 0)
        return;
    e->timer = FRAMES_PER_PICTURE;
    if (++e->frame >= BURN_SMALL_SET.count) {
        e->flags |= EFFECT_FINISHED;
        return;
    }
    set_picture_keeping_centre(e, e->frame, false);
    e->y -= BURN_RISE;
}

// --- Confetti: falls, sways and flutters ---------------------------------------------------------

i32 confetti_load() {
    return image_load_sequence(confetti_pictures, CONFETTI_SET);
}

void confetti_unload() {
    image_free_array(confetti_pictures, CONFETTI_SET.count);
}

void confetti_start(effect *e) {
    e->colour = std::rand() % CONFETTI_COLOURS;
    show_from(e, confetti_pictures, e->colour * CONFETTI_FLUTTER);
    e->vx = random_range(-CONFETTI_SWAY, CONFETTI_SWAY);
    e->vy = random_range(CONFETTI_FALL_MIN, CONFETTI_FALL_MAX);
    e->x = random_range(CONFETTI_MARGIN, SCREEN_WIDTH - CONFETTI_MARGIN);
    e->y = 1 - e->h;
    e->vdir = 1;
    e->vmax = std::abs(e->vx);
}

void confetti_flutter(effect *e) {
    e->frame += e->phase < CONFETTI_PHASES / 2 ? 1 : -1;
    e->phase = (e->phase + 1) % CONFETTI_PHASES;
    set_picture_keeping_centre(e, e->frame, true);
}

void confetti_update(effect *e) {
    e->vx += e->vdir;
    if (e->vx > e->vmax)
        e->vdir = -1;
    else if (e->vx < -e->vmax)
        e->vdir = 1;
    drift(e->x, e->fx, e->vx);
    drift(e->y, e->fy, e->vy);
    if (--e->timer > 0)
        return;
    e->timer = std::rand() % CONFETTI_TURN_RANGE + CONFETTI_TURN_MIN;
    confetti_flutter(e);
}

// --- The kinds -----------------------------------------------------------------------------------

struct effect_operations {
    i32 (*load[EFFECT_KIND_COUNT])();                // at start-up; negative: failure
    void (*unload[EFFECT_KIND_COUNT])();             // at exit; safe when loading failed or never ran
    void (*start[EFFECT_KIND_COUNT])(effect *);      // a new, zero-filled effect
    void (*update[EFFECT_KIND_COUNT])(effect *);     // one frame
    void (*draw[EFFECT_KIND_COUNT])(const effect *); // records it
};

// clang-format off
constexpr effect_operations OPERATIONS = {
    //          flare         burn          confetti
    .load   = {flare_load,   burn_load,    confetti_load},
    .unload = {flare_unload, burn_unload,  confetti_unload},
    .start  = {flare_start,  burn_start,   confetti_start},
    .update = {flare_update, burn_update,  confetti_update},
    .draw   = {draw_blended, draw_blended, draw_plain},
};
// clang-format on

template <class Operation> constexpr bool has_all(const Operation (&slots)[EFFECT_KIND_COUNT]) {
    return std::ranges::find(slots, nullptr) == std::end(slots);
}
static_assert(has_all(OPERATIONS.load) && has_all(OPERATIONS.unload) && has_all(OPERATIONS.start) &&
              has_all(OPERATIONS.update) && has_all(OPERATIONS.draw));

} // namespace

i32 effects_init() {
    for (const auto load : OPERATIONS.load)
        if (load() < 0)
            return -1;
    return 1;
}

void effects_shutdown() {
    for (const auto unload : OPERATIONS.unload)
        unload();
}

effect *effect_create(i32 kind) {
    auto *e = static_cast<effect *>(std::calloc(1, sizeof(effect)));
    if (e == nullptr) {
        log_out_of_memory();
        return nullptr;
    }
    e->kind = kind;
    OPERATIONS.start[kind](e);
    return e;
}

void effect_free(effect *e) {
    std::free(e);
}

void effect_burn_large(effect *e) {
    e->frames = burn_large_pictures;
    set_picture(e, e->frame);
}

void effect_centre_on(effect *e, const rect &area) {
    e->x = centre_in(area.x, area.w, e->w);
    e->y = centre_in(area.y, area.h, e->h);
}

void effect_update(effect *e) {
    OPERATIONS.update[e->kind](e);
}

void effect_draw(const effect *e) {
    OPERATIONS.draw[e->kind](e);
}

bool effect_off_screen(const effect *e) {
    return e->x < -e->w || e->x >= SCREEN_WIDTH || e->y >= SCREEN_HEIGHT;
}
