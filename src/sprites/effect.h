// effect.h: short animated pictures over the play field that end by themselves: flare, burn, confetti.
//
// Main thread. The pictures are loaded once by effects_init and shared by all effects; an effect belongs to
// whoever created it, who places it, updates and draws it once a frame and frees it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"

enum effect_kind : i32 { EFFECT_FLARE = 0, EFFECT_BURN = 1, EFFECT_CONFETTI = 2, EFFECT_KIND_COUNT };

inline constexpr u32 EFFECT_FINISHED = 0x1; // has played to its end; the owner may free it (never for confetti)

struct effect {
    i32 kind;   // an effect_kind
    i32 colour; // confetti: 0..14
    u32 flags;
    i32 x, y;                   // top-left corner of the current picture, window pixels
    i32 w, h;                   // of the current picture
    i32 frame;                  // index of the current picture in frames
    i32 phase;                  // flare: 0 growing, 1 shrinking; confetti: 0..5
    const image *const *frames; // borrowed; the picture array in use
    const image *picture;       // borrowed; the current picture
    i32 timer;                  // frames left until the next picture
    i32 vx, vy;                 // confetti: hundredths of a pixel per frame
    i32 fx, fy;                 // confetti: hundredths of a pixel travelled and not yet shown
    i32 vmax;                   // confetti: largest sideways speed
    i32 vdir;                   // confetti: +1 or -1, the way vx is changing
};

[[nodiscard]] i32 effects_init(); // 1, or -1 when a picture cannot be loaded
void effects_shutdown();          // frees the pictures; effects may then only be freed

// Starts an effect; null when out of memory (logged). Flares and burns are then placed by the caller.
[[nodiscard]] effect *effect_create(i32 kind);
void effect_free(effect *e);                        // accepts null
void effect_burn_large(effect *e);                  // the large pictures of a burn, from its current frame on
void effect_centre_on(effect *e, const rect &area); // puts its current picture's centre there

void effect_update(effect *e);           // one frame; sets EFFECT_FINISHED after the last picture
void effect_draw(const effect *e);       // records it
bool effect_off_screen(const effect *e); // has left the window at the left, the right or the bottom
