// draw_ops.h: what each drawing command carries, and the one manifest of the commands.
//
// The manifest names each command's id, operand record and player. The recorder's sizes and the player's dispatch
// come from it, so that a command is added by a row here, its record and its player. Records are copied into the
// lists byte for byte, without alignment.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "graphics/draw_list.h"

#include <cstddef>
#include <cstring>
#include <iterator>
#include <type_traits>

struct no_operands {};

struct area_operands {
    rect area;
};

struct image_operands {
    const image *picture; // borrowed until played
    i32 x, y;
};

struct image_ex_operands {
    const image *picture; // borrowed until played
    i32 x, y;
    u32 mode; // BLIT_ bits
    rgb colour_a, colour_b;
    u8 unused[2];
    rect source; // for BLIT_SOURCE_RECT
};

struct image_clipped_operands {
    const image *picture; // borrowed until played
    i32 x, y;
    rect clip;
};

struct free_image_operands {
    image *picture; // handed over
};

struct fill_operands {
    rect area;
    rgb colour;
    u8 unused;
    i32 dirty; // not 0: marks what it drew
};

struct pixel_operands {
    i32 x, y;
    rgb colour;
    u8 unused;
    i32 dirty;
};

struct slot_operands {
    rect area; // unused when restoring
    i32 slot;
};

struct noise_operands {
    rect area;
    rgb limits; // each channel stays below its own
    u8 unused;
};

struct line_operands {
    i32 x0, y0, x1, y1;
    rgb colour;
    u8 unused;
    i32 dirty;
};

struct text_operands {
    i32 x, y;
    u8 slot; // character code
    u8 unused[3];
    i32 red, green, blue; // factors, 255 for full strength
    i32 to_background;    // not 0: into the background
};

// What playing a command changes beside the rectangles that changed on the screen.
enum draw_reach : u8 {
    REACH_SCREEN,  // the screen, in the same way each time
    REACH_SLOT,    // the screen or a save slot
    REACH_MODE,    // the screen, unless the mode word says otherwise
    REACH_TARGET,  // the screen, unless the target says otherwise
    REACH_FURTHER, // the background, pictures or the dice
};

// clang-format off
#define DRAW_MANIFEST(ROW)                                                                    \
    /*  id                      operands                player                  reach     */  \
    ROW(DRAW_IMAGE,             image_operands,         perform_image,             REACH_SCREEN) \
    ROW(DRAW_RESTORE,           area_operands,          perform_restore,           REACH_SCREEN) \
    ROW(DRAW_IMAGE_EX,          image_ex_operands,      perform_image_ex,          REACH_MODE)   \
    ROW(DRAW_IMAGE_BG,          image_operands,         perform_image_bg,          REACH_FURTHER)\
    ROW(DRAW_DARKEN,            area_operands,          perform_darken,            REACH_SCREEN) \
    ROW(DRAW_FREE_IMAGE,        free_image_operands,    perform_free_image,        REACH_FURTHER)\
    ROW(DRAW_FILL,              fill_operands,          perform_fill,              REACH_SCREEN) \
    ROW(DRAW_DARKEN_BG,         area_operands,          perform_darken_bg,         REACH_FURTHER)\
    ROW(DRAW_FILL_BG,           fill_operands,          perform_fill_bg,           REACH_FURTHER)\
    ROW(DRAW_PIXEL,             pixel_operands,         perform_pixel,             REACH_SCREEN) \
    ROW(DRAW_SAVE,              slot_operands,          perform_save,              REACH_SLOT)   \
    ROW(DRAW_RESTORE_SAVED,     slot_operands,          perform_restore_saved,     REACH_SLOT)   \
    ROW(DRAW_STORE_BG,          area_operands,          perform_store_bg,          REACH_FURTHER)\
    ROW(DRAW_IMAGE_CLIPPED,     image_clipped_operands, perform_image_clipped,     REACH_SCREEN) \
    ROW(DRAW_IMAGE_CLIPPED_BG,  image_clipped_operands, perform_image_clipped_bg,  REACH_FURTHER)\
    ROW(DRAW_FRAME,             fill_operands,          perform_frame,             REACH_SCREEN) \
    ROW(DRAW_PUSH_BG,           no_operands,            perform_push_bg,           REACH_FURTHER)\
    ROW(DRAW_POP_BG,            no_operands,            perform_pop_bg,            REACH_FURTHER)\
    ROW(DRAW_DIRTY,             area_operands,          perform_dirty,             REACH_SCREEN) \
    ROW(DRAW_NOISE_BG,          noise_operands,         perform_noise_bg,          REACH_FURTHER)\
    ROW(DRAW_LINE,              line_operands,          perform_line,              REACH_SCREEN) \
    ROW(DRAW_TEXT,              text_operands,          perform_text,              REACH_TARGET)
// clang-format on

// Bytes that a record takes in a list.
template <class Operands> constexpr i32 operands_size() {
    static_assert(std::is_trivially_copyable_v<Operands>);
    return std::is_empty_v<Operands> ? 0 : static_cast<i32>(sizeof(Operands));
}

static_assert(operands_size<no_operands>() == 0);
static_assert(operands_size<area_operands>() == 16);
static_assert(operands_size<image_operands>() == sizeof(void *) + 8);
static_assert(offsetof(image_ex_operands, source) == sizeof(void *) + 20);
static_assert(operands_size<image_clipped_operands>() == sizeof(void *) + 24);
static_assert(operands_size<free_image_operands>() == sizeof(void *));
static_assert(operands_size<fill_operands>() == 24);
static_assert(operands_size<pixel_operands>() == 16);
static_assert(operands_size<slot_operands>() == 20);
static_assert(operands_size<noise_operands>() == 20);
static_assert(operands_size<line_operands>() == 24);
static_assert(operands_size<text_operands>() == 28);

// Players: on the render thread, under the surface lock and inside a screen_access.
#define DECLARE_PLAYER(id, operands, player, reach) void player(const operands &op);
DRAW_MANIFEST(DECLARE_PLAYER)
#undef DECLARE_PLAYER

struct draw_command {
    draw_opcode id;
    draw_reach reach;
    i32 size;                   // bytes of operands
    void (*play)(const u8 *at); // at the operands, which need not be aligned
};

template <class Operands, void (*player)(const Operands &)> void play_operands(const u8 *at) {
    Operands op{};
    std::memcpy(&op, at, static_cast<std::size_t>(operands_size<Operands>()));
    player(op);
}

#define COMMAND_ROW(id, operands, player, reach)                                                                       \
    {id, reach, operands_size<operands>(), play_operands<operands, player>},
inline constexpr draw_command DRAW_COMMANDS[] = {DRAW_MANIFEST(COMMAND_ROW)};
#undef COMMAND_ROW

static_assert(std::size(DRAW_COMMANDS) == DRAW_OPCODE_COUNT);
static_assert([] {
    for (u8 i = 0; i < DRAW_OPCODE_COUNT; ++i)
        if (DRAW_COMMANDS[i].id != i)
            return false;
    return true;
}());

// The record of a command, so that recording the wrong one does not compile.
template <draw_opcode id> struct operands_of;
#define OPERANDS_OF(id, operands, player, reach)                                                                       \
    template <> struct operands_of<id> { using type = operands; };
DRAW_MANIFEST(OPERANDS_OF)
#undef OPERANDS_OF

// draw_list_add and draw_list_add_next with the command's own record.
template <draw_opcode id> void draw_record(const typename operands_of<id>::type &operands) {
    draw_list_add(id, &operands);
}
template <draw_opcode id> void draw_record_next(const typename operands_of<id>::type &operands) {
    draw_list_add_next(id, &operands);
}
