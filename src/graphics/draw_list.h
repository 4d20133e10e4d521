// draw_list.h: the drawing commands, their operand records, and recording them.
//
// Screens record a frame's commands on the main thread between render_begin_frame and render_end_frame
// (graphics/render.h), which hold the render lock. The render thread plays the list. A command is one opcode
// byte followed by its operand record. When a list cannot grow, the command is dropped and logged.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"
#include "resources/image.h"

// Unrecorded: the commands and mode bits marked so are played, but no screen of the game records them.
enum draw_opcode : u8 {
    DRAW_IMAGE,            // picture onto the screen
    DRAW_RESTORE,          // rectangle from the background to the screen
    DRAW_IMAGE_EX,         // picture by a mode word
    DRAW_IMAGE_BG,         // picture into the background
    DRAW_DARKEN,           // halve the brightness of a screen rectangle
    DRAW_FREE_IMAGE,       // free a picture in order; unrecorded
    DRAW_FILL,             // filled rectangle
    DRAW_DARKEN_BG,        // as DRAW_DARKEN, in the background
    DRAW_FILL_BG,          // as DRAW_FILL, in the background; unrecorded
    DRAW_PIXEL,            // one pixel; unrecorded
    DRAW_SAVE,             // screen rectangle into a save slot
    DRAW_RESTORE_SAVED,    // save slot back to where it came from
    DRAW_STORE_BG,         // screen rectangle into the background
    DRAW_IMAGE_CLIPPED,    // picture inside a clip rectangle
    DRAW_IMAGE_CLIPPED_BG, // the same into the background; unrecorded
    DRAW_FRAME,            // one-pixel outline
    DRAW_PUSH_BG,          // background into the spare; unrecorded
    DRAW_POP_BG,           // spare into the background; unrecorded
    DRAW_DIRTY,            // mark a rectangle as changed; unrecorded
    DRAW_NOISE_BG,         // random colours in the background; unrecorded
    DRAW_LINE,             // line
    DRAW_TEXT,             // one character
    DRAW_OPCODE_COUNT
};

// Bits of DRAW_IMAGE_EX's mode word. One pixel rule applies, in the order FILL, TINT, NOISE, OR, HALF; none
// of them set: copy.
inline constexpr u32 BLIT_FILL = 0x1;        // every drawn pixel becomes colour A
inline constexpr u32 BLIT_EDGE = 0x2;        // then the first and last pixel of each run become colour B; unrecorded
inline constexpr u32 BLIT_NO_DIRTY = 0x4;    // adds no dirty rectangle
inline constexpr u32 BLIT_SOURCE_RECT = 0x8; // only the source rectangle, its corner at (x, y); unrecorded
inline constexpr u32 BLIT_TO_BG = 0x10;      // into the background; unrecorded
inline constexpr u32 BLIT_NOISE = 0x20;      // random colours, each channel below colour A's; unrecorded
inline constexpr u32 BLIT_OR = 0x40;         // colour A is OR-ed in; unrecorded
inline constexpr u32 BLIT_HALF = 0x80;       // picture at half strength
inline constexpr u32 BLIT_TINT = 0x100;      // halfway toward colour A

// Appends a command (operands: the opcode's record, see draw_ops.h) to the list being recorded, or to the
// next one, where it is played before that frame's own commands.
void draw_list_add(draw_opcode opcode, const void *operands);
void draw_list_add_next(draw_opcode opcode, const void *operands);

// --- One call a command --------------------------------------------------------------------------

// Each records the command of its name. dirty: what it draws is marked as changed, so that it is shown.

// restore_next: also queue the restoring of the picture's rectangle into the next frame's list.
void draw_image(const image *picture, i32 x, i32 y, bool restore_next);
void draw_image_bg(const image *picture, i32 x, i32 y);
void draw_image_bg_show(const image *picture, i32 x, i32 y); // and restore its rectangle at once
void draw_image_ex(const image *picture, i32 x, i32 y, u32 mode, rgb colour_a);
void draw_image_clipped(const image *picture, i32 x, i32 y, const rect &clip);
void draw_restore(const rect &area);
void draw_restore_next(const rect &area); // in the next frame's list
void draw_darken(const rect &area);
void draw_darken_bg(const rect &area);
void draw_fill(const rect &area, rgb colour, bool dirty);
void draw_frame(const rect &area, rgb colour, bool dirty);
void draw_line(i32 x0, i32 y0, i32 x1, i32 y1, rgb colour, bool dirty);
void draw_save(const rect &area, i32 slot);
void draw_restore_saved(i32 slot);
void draw_store_bg(const rect &area);
void draw_character(char c, i32 x, i32 y, rgb factors, bool to_background);
