// sprite.h: the body of a puzzle piece or of a board cell: its pictures, its animations, lists of them.
//
// Main thread. A sprite borrows all its pictures, which must outlive the frames in which it is drawn. Every
// animation is a flag that some function sets and that sprite_update clears when the animation ends; several
// may run at once. One frame is 20 ms. Only sprite_create can fail.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/containers.h"
#include "core/base/types.h"
#include "resources/image.h"
#include "sprites/sprite_edge.h"

// States.
inline constexpr u32 SPRITE_INERT = 0x1;            // not found by the hit test, so it cannot be taken
inline constexpr u32 SPRITE_RAISE = 0x8;            // to the front of its list at the next list update
inline constexpr u32 SPRITE_FIXED = 0x20;           // placed for good: sprite_send_home does nothing
inline constexpr u32 SPRITE_HIDDEN = 0x40;          // not drawn
inline constexpr u32 SPRITE_HIDE_ON_ARRIVAL = 0x80; // a trip home ends hidden and inert
inline constexpr u32 SPRITE_REDEAL = 0x400;         // a trip home ends with SPRITE_AVAILABLE set
inline constexpr u32 SPRITE_HELD = 0x10000;         // dragged by the mouse
inline constexpr u32 SPRITE_LABEL_TOP = 0x40000;    // label 3 pixels below the body's top, not centred vertically

// States that only the puzzle logic reads.
inline constexpr u32 SPRITE_AVAILABLE = 0x200;  // may be dealt
inline constexpr u32 SPRITE_ANSWERED = 0x800;   // taken from the deck, or its problem has been answered
inline constexpr u32 SPRITE_DEAL_NEXT = 0x1000; // placing it deals the next card

// Running animations.
inline constexpr u32 SPRITE_PULSE = 0x2;         // colour pulse: drawn tinted with pulse_cur
inline constexpr u32 SPRITE_PULSE_TIMED = 0x4;   // the pulse stops when pulse_frames runs out
inline constexpr u32 SPRITE_TRAVEL = 0x10;       // on the way to (home_x, home_y)
inline constexpr u32 SPRITE_GROW = 0x100;        // appears from its centre
inline constexpr u32 SPRITE_UNFOLD = 0x2000;     // edge features grow out, the label's silhouette darkens
inline constexpr u32 SPRITE_VANISH = 0x4000;     // counts down to being put home, hidden
inline constexpr u32 SPRITE_FOLLOW = 0x8000;     // moves with the mouse
inline constexpr u32 SPRITE_BLINK_OUT = 0x20000; // counts down, flickering, to being hidden

struct sprite {
    u32 flags;
    i32 index;                                                // number given by the puzzle logic; a cell's body picture
    i32 x, y;                                                 // top-left corner of the body, window pixels
    i32 w, h;                                                 // of the body picture
    i32 home_x, home_y;                                       // where sprite_send_home and the vanish timer take it
    i32 anchor_x, anchor_y;                                   // rest position of the deck logic
    i32 answer;                                               // number that answers the problem (keypad puzzles)
    i32 col, row;                                             // a cell's place in the grid, a box piece's where it lay
    i32 target_col, target_row;                               // a piece's cell
    i32 tab_top, sock_right, sock_bottom, tab_left;           // places of the edge features along their edges, pixels
    i32 ext_top, ext_right, ext_bottom, ext_left;             // depths of the edge features, pixels
    i32 label_index;                                          // index of the label in the board's labels
    const image *body;                                        // borrowed
    const image *label;                                       // borrowed; null for none
    const image *img_top, *img_right, *img_bottom, *img_left; // borrowed; the edge features
    rgb pulse_a, pulse_b, pulse_cur;                          // the pulse's two ends and its colour now
    i32 pulse_frames;                                         // frames left of a timed pulse
    i32 pulse_dir;                                            // above 0: toward pulse_b, else toward pulse_a
    i32 vel_x, vel_y;                                         // hundredths of a pixel per frame
    i32 frac_x, frac_y;                                       // hundredths of a pixel travelled and not yet shown
    char *label_text;                                         // owned; null for none
    i32 grow_w, grow_h;                                       // size shown while growing
    i32 unfold_timer, unfold_phase;                           // frames left of the phase, and the phase
    i32 unfold_ext[EDGE_COUNT];                               // pixels of each edge feature shown while unfolding
    i32 unfold_r, unfold_g, unfold_b;                         // colour of the label's silhouette; its low bytes count
    i32 vanish_frames;                                        // frames left before it vanishes
    i32 follow_frames;                                        // frames left of following the mouse
    i32 follow_last_x, follow_last_y;                         // the mouse in the previous frame
    i32 blink_frames;                                         // frames left of blinking out
};

[[nodiscard]] sprite *sprite_create(); // zero-filled: visible, can be taken, still; null when out of memory (logged)
void sprite_free(sprite *s);           // accepts null

void sprite_set_body(sprite *s, const image *body);                        // with it w and h
void sprite_set_edges(sprite *s, const image *const pictures[EDGE_COUNT]); // with them their depths
void sprite_set_edge_sizes(sprite *s); // depths from the edge pictures, where these were set one by one

// Swings between two colours, starting at a; frames 0: until stopped.
void sprite_pulse(sprite *s, rgb a, rgb b, i32 frames);
void sprite_pulse_stop(sprite *s); // the tint goes at once
void sprite_raise(sprite *s);      // on top of its list from the next list update on
void sprite_fix(sprite *s);        // fixed and inert

// Travels home in a straight line, inert on the way; speed in hundredths of a pixel per frame, measured as
// the sum of both axes. A fixed sprite stays.
void sprite_send_home(sprite *s, i32 speed);
void sprite_grow(sprite *s);   // appears from its centre, inert until it is whole; nothing while it is growing
void sprite_unfold(sprite *s); // its edge features grow out; nothing while it is unfolding
void sprite_vanish_after(sprite *s, i32 frames);                 // then it is put home, hidden and inert
void sprite_follow_mouse(sprite *s, i32 frames, i32 mx, i32 my); // (mx, my): the mouse now
void sprite_blink_out(sprite *s);                                // steady for 4 s, flickers for 4 s, then hidden
void sprite_clear_effects(sprite *s);                            // ends pulse, unfold and blink-out, and shows it

void sprite_update(sprite *s); // one frame of every running animation; reads mouse_x, mouse_y

// Lists are drawn from first to last and must hold no nulls.

// The topmost sprite that is not inert and whose body, edges included, holds the point; null for none.
sprite *sprite_list_hit(const ptr_array<sprite> *list, i32 px, i32 py);
void sprite_list_settle(ptr_array<sprite> *list, sprite *fixed); // below all that are not fixed, above all that are
void sprite_list_update(ptr_array<sprite> *list); // updates each sprite, then moves the raised ones to the end
