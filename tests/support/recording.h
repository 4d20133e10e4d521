// recording.h: the drawing commands of a frame as lines of text, for tests that compare what was recorded, and the
// sounds that were asked for in the test programs that have a sound_play of their own.
//
// Without a render thread: record, then look. Looking empties the lists. A line is the command's short name and its
// operands in order; pictures stand by the names that the test gives them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "graphics/draw_ops.h"
#include "graphics/draw_queue.h"

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

using picture_names = std::map<const image *, std::string>;
using lines = std::vector<std::string>;
using sounds = std::vector<i32>;

struct recording {
    lines now;  // this frame's commands
    lines next; // what was queued before the next frame's
};

inline sounds sounds_played;

// What was asked for since the last call.
inline sounds take_sounds() {
    return std::exchange(sounds_played, {});
}

inline bool overlap(const rect &a, const rect &b) {
    return a.x < b.x + b.w && b.x < a.x + a.w && a.y < b.y + b.h && b.y < a.y + a.h;
}
inline bool inside(const rect &inner, const rect &outer) {
    return outer.x <= inner.x && outer.y <= inner.y && inner.x + inner.w <= outer.x + outer.w &&
           inner.y + inner.h <= outer.y + outer.h;
}

namespace recording_detail {

template <class... Numbers> std::string text_of(Numbers... numbers) {
    std::string text;
    ((text += " " + std::to_string(numbers)), ...);
    return text;
}
inline std::string text_of(const rect &r) {
    return text_of(r.x, r.y, r.w, r.h);
}
inline std::string text_of(u32 mode, rgb colour) {
    char text[32];
    std::snprintf(text, sizeof text, " %03x %02x%02x%02x", mode, colour.r, colour.g, colour.b);
    return text;
}

template <class Operands> Operands operands_at(const u8 *at) {
    Operands op;
    std::memcpy(&op, at, sizeof op);
    return op;
}

inline std::string line_of(u8 id, const u8 *at, const picture_names &names) {
    // The picture and place with which the records of the picture commands begin.
    const auto placed = [&] {
        const auto op = operands_at<image_operands>(at);
        const auto found = names.find(op.picture);
        return (found == names.end() ? "?" : found->second) + text_of(op.x, op.y);
    };
    switch (id) {
    case DRAW_IMAGE:
        return "image " + placed();
    case DRAW_IMAGE_BG:
        return "bg " + placed();
    case DRAW_IMAGE_EX:
        return "ex " + placed() +
               text_of(operands_at<image_ex_operands>(at).mode, operands_at<image_ex_operands>(at).colour_a);
    case DRAW_IMAGE_CLIPPED:
        return "clipped " + placed() + " in" + text_of(operands_at<image_clipped_operands>(at).clip);
    case DRAW_RESTORE:
        return "restore" + text_of(operands_at<area_operands>(at).area);
    case DRAW_DARKEN:
        return "darken" + text_of(operands_at<area_operands>(at).area);
    case DRAW_FRAME:
        return "frame" + text_of(operands_at<fill_operands>(at).area) + text_of(operands_at<fill_operands>(at).dirty);
    case DRAW_SAVE:
        return "save" + text_of(operands_at<slot_operands>(at).slot) + text_of(operands_at<slot_operands>(at).area);
    case DRAW_RESTORE_SAVED:
        return "restore saved" + text_of(operands_at<slot_operands>(at).slot);
    case DRAW_LINE:
        return "line" + text_of(operands_at<rect>(at)) + text_of(operands_at<line_operands>(at).dirty);
    case DRAW_FILL:
        return "fill" + text_of(operands_at<fill_operands>(at).area);
    case DRAW_TEXT: {
        const auto op = operands_at<text_operands>(at);
        return std::string("letter ") + static_cast<char>(op.slot) + text_of(op.x, op.y, op.red);
    }
    default:
        return "command " + std::to_string(id);
    }
}

inline lines take(draw_block *list, const picture_names &names) {
    lines all;
    for (i32 at = 0; at < list->length;) {
        const u8 id = list->bytes[at++];
        all.push_back(line_of(id, list->bytes + at, names));
        at += DRAW_COMMANDS[id].size;
    }
    list->length = 0;
    return all;
}

} // namespace recording_detail

inline recording take_recording(const picture_names &names = {}) {
    draw_queue.pending = false;
    return {.now = recording_detail::take(&draw_queue.lists[draw_queue.recording], names),
            .next = recording_detail::take(&draw_queue.lists[draw_queue.recording ^ 1], names)};
}
