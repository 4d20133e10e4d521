// sprite.cpp: the life of a sprite: its operations, one frame of its animations, and lists of sprites.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/sprite.h"

#include "core/base/log.h"
#include "input/input.h"
#include "sound/sound.h"
#include "sprites/motion.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

constexpr i32 PULSE_STEP = 5;
constexpr i32 GROW_STEP = 2; // pixels per frame, half of them at each side

enum unfold_phase : i32 { UNFOLD_START, UNFOLD_EDGES, UNFOLD_DARKEN, UNFOLD_END };
constexpr i32 UNFOLD_EDGE_PERIOD = 8;    // frames for one more pixel of each edge feature
constexpr i32 UNFOLD_DARKEN_FRAMES = 20; // after the edges are out
constexpr i32 UNFOLD_WHITE = 255;

constexpr i32 BLINK_FRAMES = 400;
constexpr i32 BLINK_FLICKER_FRAMES = 200; // the rest of them, steady before

// The flicker quickens: with so many frames left or fewer, every nth frame is hidden.
struct blink_rate {
    i32 frames_left;
    i32 nth;
};
constexpr blink_rate BLINK_RATES[] = {{75, 2}, {100, 3}, {BLINK_FLICKER_FRAMES, 4}};

} // namespace

sprite *sprite_create() {
    auto *s = static_cast<sprite *>(std::calloc(1, sizeof(sprite)));
    if (s == nullptr)
        log_out_of_memory();
    return s;
}

void sprite_free(sprite *s) {
    if (s == nullptr)
        return;
    std::free(s->label_text);
    std::free(s);
}

void sprite_set_body(sprite *s, const image *body) {
    s->body = body;
    s->w = body->width;
    s->h = body->height;
}

void sprite_set_edges(sprite *s, const image *const pictures[EDGE_COUNT]) {
    s->img_top = pictures[EDGE_TOP];
    s->img_right = pictures[EDGE_RIGHT];
    s->img_bottom = pictures[EDGE_BOTTOM];
    s->img_left = pictures[EDGE_LEFT];
    sprite_set_edge_sizes(s);
}

void sprite_set_edge_sizes(sprite *s) {
    s->ext_top = s->img_top->height;
    s->ext_right = s->img_right->width;
    s->ext_bottom = s->img_bottom->height;
    s->ext_left = s->img_left->width;
}

// --- Starting and stopping -----------------------------------------------------------------------

void sprite_pulse(sprite *s, rgb a, rgb b, i32 frames) {
    s->flags |= SPRITE_PULSE;
    if (frames != 0) {
        s->flags |= SPRITE_PULSE_TIMED;
        s->pulse_frames = frames;
    } else {
        s->flags &= ~SPRITE_PULSE_TIMED;
    }
    s->pulse_a = s->pulse_cur = a;
    s->pulse_b = b;
    s->pulse_dir = 1;
}

void sprite_pulse_stop(sprite *s) {
    s->flags &= ~SPRITE_PULSE;
}

void sprite_raise(sprite *s) {
    s->flags |= SPRITE_RAISE;
}

void sprite_fix(sprite *s) {
    s->flags |= SPRITE_FIXED | SPRITE_INERT;
}

void sprite_send_home(sprite *s, i32 speed) {
    if ((s->flags & SPRITE_FIXED) != 0)
        return;
    const i32 dx = s->home_x - s->x;
    const i32 dy = s->home_y - s->y;
    const i32 distance = std::abs(dx) + std::abs(dy);
    s->flags |= SPRITE_TRAVEL | SPRITE_INERT;
    s->frac_x = s->frac_y = 0;
    s->vel_x = s->vel_y = 0;
    if (distance == 0) // the next update ends the trip
        return;
    s->vel_x = dx * speed / distance;
    s->vel_y = dy * speed / distance;
    sound_play(SOUND_PIECE_RETURN);
}

void sprite_grow(sprite *s) {
    if ((s->flags & SPRITE_GROW) != 0)
        return;
    s->flags |= SPRITE_GROW | SPRITE_INERT;
    s->grow_w = s->grow_h = 0;
    sound_play(SOUND_PIECE_EMERGE);
}

void sprite_unfold(sprite *s) {
    if ((s->flags & SPRITE_UNFOLD) != 0)
        return;
    s->flags |= SPRITE_UNFOLD;
    s->unfold_phase = UNFOLD_START;
}

void sprite_vanish_after(sprite *s, i32 frames) {
    s->flags |= SPRITE_VANISH;
    s->vanish_frames = frames;
    sound_play(SOUND_PIECE_DISAPPEAR);
}

void sprite_follow_mouse(sprite *s, i32 frames, i32 mx, i32 my) {
    s->flags |= SPRITE_FOLLOW;
    s->follow_frames = frames;
    s->follow_last_x = mx;
    s->follow_last_y = my;
}

void sprite_blink_out(sprite *s) {
    s->flags |= SPRITE_BLINK_OUT;
    s->blink_frames = BLINK_FRAMES;
}

void sprite_clear_effects(sprite *s) {
    s->flags &= ~(SPRITE_BLINK_OUT | SPRITE_UNFOLD | SPRITE_HIDDEN | SPRITE_PULSE);
}

// --- One frame -----------------------------------------------------------------------------------

namespace {

u8 fade_channel(u8 now, u8 target) {
    const i32 next = now > target ? std::max<i32>(now - PULSE_STEP, target) : std::min<i32>(now + PULSE_STEP, target);
    return static_cast<u8>(next);
}

void update_pulse(sprite *s) {
    if ((s->flags & SPRITE_PULSE_TIMED) != 0 && --s->pulse_frames <= 0)
        s->flags &= ~SPRITE_PULSE;
    const rgb target = s->pulse_dir > 0 ? s->pulse_b : s->pulse_a;
    rgb &now = s->pulse_cur;
    if (now.r == target.r && now.g == target.g && now.b == target.b) {
        s->pulse_dir = -s->pulse_dir;
        return;
    }
    now = {fade_channel(now.r, target.r), fade_channel(now.g, target.g), fade_channel(now.b, target.b)};
}

void update_vanish(sprite *s) {
    if (--s->vanish_frames > 0)
        return;
    s->flags &= ~SPRITE_VANISH;
    s->flags |= SPRITE_HIDDEN | SPRITE_INERT;
    s->x = s->home_x;
    s->y = s->home_y;
}

void update_follow(sprite *s) {
    s->x += mouse_x - s->follow_last_x;
    s->y += mouse_y - s->follow_last_y;
    s->follow_last_x = mouse_x;
    s->follow_last_y = mouse_y;
    if (--s->follow_frames <= 0)
        s->flags &= ~SPRITE_FOLLOW;
}

void travel_axis(i32 &position, i32 &velocity, i32 &remainder, i32 home) {
    const bool from_below = position < home;
    drift(position, remainder, velocity);
    if (from_below ? position > home : position < home)
        position = home;
    if (position == home)
        velocity = 0;
}

void update_travel(sprite *s) {
    travel_axis(s->x, s->vel_x, s->frac_x, s->home_x);
    travel_axis(s->y, s->vel_y, s->frac_y, s->home_y);
    if (s->vel_x != 0 || s->vel_y != 0)
        return;
    s->flags &= ~(SPRITE_TRAVEL | SPRITE_INERT);
    if ((s->flags & SPRITE_HIDE_ON_ARRIVAL) != 0)
        s->flags |= SPRITE_HIDDEN | SPRITE_INERT;
    if ((s->flags & SPRITE_REDEAL) != 0)
        s->flags |= SPRITE_AVAILABLE;
}

void update_grow(sprite *s) {
    const bool wide = s->grow_w >= s->w;
    const bool high = s->grow_h >= s->h;
    if (!wide)
        s->grow_w += GROW_STEP;
    if (!high)
        s->grow_h += GROW_STEP;
    if (wide && high)
        s->flags &= ~(SPRITE_GROW | SPRITE_INERT);
}

// Green and blue fall twice as fast as red: the white silhouette turns a deep red.
void darken_silhouette(sprite *s) {
    if ((s->unfold_timer & 1) != 0)
        --s->unfold_r;
    --s->unfold_g;
    --s->unfold_b;
}

void extend_next_edge(sprite *s) {
    const i32 depths[EDGE_COUNT] = {s->ext_top, s->ext_right, s->ext_bottom, s->ext_left};
    if (s->unfold_timer < 0)
        return;
    const i32 turn = s->unfold_timer % UNFOLD_EDGE_PERIOD;
    if (turn < EDGE_COUNT && s->unfold_ext[turn] < depths[turn])
        ++s->unfold_ext[turn];
}

void update_unfold(sprite *s) {
    const bool expired = --s->unfold_timer <= 0;
    switch (s->unfold_phase) {
    case UNFOLD_START:
        s->unfold_timer = s->ext_top * UNFOLD_EDGE_PERIOD;
        std::fill_n(s->unfold_ext, i32{EDGE_COUNT}, 0);
        s->unfold_r = s->unfold_g = s->unfold_b = UNFOLD_WHITE;
        s->unfold_phase = UNFOLD_EDGES;
        break;
    case UNFOLD_EDGES:
        extend_next_edge(s);
        darken_silhouette(s);
        if (expired) {
            s->unfold_timer = UNFOLD_DARKEN_FRAMES;
            s->unfold_phase = UNFOLD_DARKEN;
        }
        break;
    case UNFOLD_DARKEN:
        darken_silhouette(s);
        if (expired)
            s->unfold_phase = UNFOLD_END;
        break;
    default:
        s->flags &= ~SPRITE_UNFOLD;
    }
}

void update_blink_out(sprite *s) {
    const i32 left = --s->blink_frames;
    const auto *rate = std::ranges::find_if(BLINK_RATES, [left](const blink_rate &r) { return left <= r.frames_left; });
    if (rate != std::end(BLINK_RATES)) {
        s->flags &= ~SPRITE_HIDDEN;
        if (left % rate->nth == 0)
            s->flags |= SPRITE_HIDDEN;
    }
    if (left == BLINK_FLICKER_FRAMES)
        sound_play(SOUND_SCORE_SHOW);
    if (left <= 0) {
        s->flags &= ~SPRITE_BLINK_OUT;
        s->flags |= SPRITE_HIDDEN;
    }
}

struct animation {
    u32 flag;
    void (*update)(sprite *s);
};
// In the order in which they run within a frame.
constexpr animation ANIMATIONS[] = {
    {SPRITE_PULSE, update_pulse},         {SPRITE_VANISH, update_vanish}, {SPRITE_FOLLOW, update_follow},
    {SPRITE_TRAVEL, update_travel},       {SPRITE_GROW, update_grow},     {SPRITE_UNFOLD, update_unfold},
    {SPRITE_BLINK_OUT, update_blink_out},
};

} // namespace

void sprite_update(sprite *s) {
    for (const animation &a : ANIMATIONS)
        if ((s->flags & a.flag) != 0)
            a.update(s);
}

// --- Lists ---------------------------------------------------------------------------------------

sprite *sprite_list_hit(const ptr_array<sprite> *list, i32 px, i32 py) {
    i32 at = ptr_array_last(list);
    while (sprite *s = ptr_array_prev(list, &at)) {
        const bool inside = px >= s->x && px <= s->x + s->w && py >= s->y && py <= s->y + s->h;
        if (inside && (s->flags & SPRITE_INERT) == 0)
            return s;
    }
    return nullptr;
}

void sprite_list_settle(ptr_array<sprite> *list, sprite *fixed) {
    fixed->flags &= ~SPRITE_RAISE;
    sprite **const at = std::find(list->items, list->items + list->count, fixed);
    const auto is_loose = [](const sprite *s) { return (s->flags & SPRITE_FIXED) == 0; };
    std::rotate(std::find_if(list->items, at, is_loose), at, at + 1);
}

void sprite_list_update(ptr_array<sprite> *list) {
    for (sprite *s : each(list))
        sprite_update(s);
    i32 at = 0;
    for (i32 unseen = list->count; unseen > 0; --unseen) {
        sprite *s = list->items[at];
        if ((s->flags & SPRITE_RAISE) == 0) {
            ++at;
            continue;
        }
        s->flags &= ~SPRITE_RAISE;
        std::rotate(list->items + at, list->items + at + 1, list->items + list->count);
    }
}
