// draw_list.cpp: recording commands into the pair of lists.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/draw_list.h"

#include "core/base/log.h"
#include "graphics/draw_ops.h"
#include "graphics/draw_queue.h"
#include "graphics/locks.h"

#include <cstdlib>
#include <cstring>

static constexpr i32 LIST_GROWTH = 16384; // bytes

static bool reserve(draw_block *list, i32 bytes) {
    i32 capacity = list->capacity;
    while (list->length + bytes >= capacity)
        capacity += LIST_GROWTH;
    if (capacity == list->capacity)
        return true;
    auto *block = static_cast<u8 *>(std::realloc(list->bytes, static_cast<std::size_t>(capacity)));
    if (block == nullptr) {
        log_out_of_memory();
        return false;
    }
    list->bytes = block;
    list->capacity = capacity;
    return true;
}

// False when the command was dropped; the list is then as it was.
static bool append(draw_block *list, draw_opcode opcode, const void *operands) {
    lock_assert(render_lock);
    if (opcode >= DRAW_OPCODE_COUNT) {
        log_error("Unknown drawing command: %i\n", opcode);
        return false;
    }
    const i32 size = DRAW_COMMANDS[opcode].size;
    if (!reserve(list, size + 1))
        return false;
    u8 *at = list->bytes + list->length;
    *at = opcode;
    if (size > 0)
        std::memcpy(at + 1, operands, static_cast<std::size_t>(size));
    list->length += size + 1;
    return true;
}

void draw_list_add(draw_opcode opcode, const void *operands) {
    if (append(&draw_queue.lists[draw_queue.recording], opcode, operands))
        draw_queue.pending.store(true);
}

void draw_list_add_next(draw_opcode opcode, const void *operands) {
    append(&draw_queue.lists[draw_queue.recording ^ 1], opcode, operands);
}

static rect rect_of(const image *picture, i32 x, i32 y) {
    return {x, y, picture->width, picture->height};
}

void draw_image(const image *picture, i32 x, i32 y, bool restore_next) {
    draw_record<DRAW_IMAGE>({picture, x, y});
    if (restore_next)
        draw_restore_next(rect_of(picture, x, y));
}

void draw_image_bg(const image *picture, i32 x, i32 y) {
    draw_record<DRAW_IMAGE_BG>({picture, x, y});
}

void draw_image_bg_show(const image *picture, i32 x, i32 y) {
    draw_image_bg(picture, x, y);
    draw_restore(rect_of(picture, x, y));
}

void draw_image_ex(const image *picture, i32 x, i32 y, u32 mode, rgb colour_a) {
    draw_record<DRAW_IMAGE_EX>({.picture = picture,
                                .x = x,
                                .y = y,
                                .mode = mode,
                                .colour_a = colour_a,
                                .colour_b = BLACK,
                                .unused = {},
                                .source = {}});
}

void draw_image_clipped(const image *picture, i32 x, i32 y, const rect &clip) {
    draw_record<DRAW_IMAGE_CLIPPED>({picture, x, y, clip});
}

void draw_restore(const rect &area) {
    draw_record<DRAW_RESTORE>({area});
}

void draw_restore_next(const rect &area) {
    draw_record_next<DRAW_RESTORE>({area});
}

void draw_darken(const rect &area) {
    draw_record<DRAW_DARKEN>({area});
}

void draw_darken_bg(const rect &area) {
    draw_record<DRAW_DARKEN_BG>({area});
}

void draw_fill(const rect &area, rgb colour, bool dirty) {
    draw_record<DRAW_FILL>({area, colour, 0, dirty});
}

void draw_frame(const rect &area, rgb colour, bool dirty) {
    draw_record<DRAW_FRAME>({area, colour, 0, dirty});
}

void draw_line(i32 x0, i32 y0, i32 x1, i32 y1, rgb colour, bool dirty) {
    draw_record<DRAW_LINE>({x0, y0, x1, y1, colour, 0, dirty});
}

void draw_save(const rect &area, i32 slot) {
    draw_record<DRAW_SAVE>({area, slot});
}

void draw_restore_saved(i32 slot) {
    draw_record<DRAW_RESTORE_SAVED>({{}, slot});
}

void draw_store_bg(const rect &area) {
    draw_record<DRAW_STORE_BG>({area});
}

void draw_character(char c, i32 x, i32 y, rgb factors, bool to_background) {
    draw_record<DRAW_TEXT>({.x = x,
                            .y = y,
                            .slot = static_cast<u8>(c),
                            .unused = {},
                            .red = factors.r,
                            .green = factors.g,
                            .blue = factors.b,
                            .to_background = to_background});
}
