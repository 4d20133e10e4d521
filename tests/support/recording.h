// recording.h: the drawing commands of a frame as lines of text, for tests that compare what was recorded.
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
#include <vector>

using picture_names = std::map<const image *, std::string>;

struct recording {
    std::vector<std::string> now;  // this frame's commands
    std::vector<std::string> next; // what was queued before the next frame's
};

namespace recording_detail {

inline std::string text_of(const rect &r) {
    return std::to_string(r.x) + " " + std::to_string(r.y) + " " + std::to_string(r.w) + " " + std::to_string(r.h);
}

template <class Operands> Operands operands_at(const u8 *at) {
    Operands op;
    std::memcpy(&op, at, sizeof op);
    return op;
}

// The picture and place with which the records of the picture commands begin.
inline std::string placed_picture(const u8 *at, const picture_names &names) {
    const auto op = operands_at<image_operands>(at);
    const auto found = names.find(op.picture);
    return (found == names.end() ? "?" : found->second) + " " + std::to_string(op.x) + " " + std::to_string(op.y);
}

inline std::string mode_and_colour(const u8 *at) {
    const auto op = operands_at<image_ex_operands>(at);
    char text[32];
    std::snprintf(text, sizeof text, " %03x %02x%02x%02x", op.mode, op.colour_a.r, op.colour_a.g, op.colour_a.b);
    return text;
}

inline std::string line_of(u8 id, const u8 *at, const picture_names &names) {
    switch (id) {
    case DRAW_IMAGE:
        return "image " + placed_picture(at, names);
    case DRAW_IMAGE_BG:
        return "bg " + placed_picture(at, names);
    case DRAW_IMAGE_EX:
        return "ex " + placed_picture(at, names) + mode_and_colour(at);
    case DRAW_IMAGE_CLIPPED:
        return "clipped " + placed_picture(at, names) + " in " + text_of(operands_at<image_clipped_operands>(at).clip);
    case DRAW_RESTORE:
        return "restore " + text_of(operands_at<area_operands>(at).area);
    case DRAW_SAVE:
        return "save " + std::to_string(operands_at<slot_operands>(at).slot) + " " +
               text_of(operands_at<slot_operands>(at).area);
    case DRAW_RESTORE_SAVED:
        return "restore saved " + std::to_string(operands_at<slot_operands>(at).slot);
    default:
        return "command " + std::to_string(id);
    }
}

inline std::vector<std::string> take(draw_block *list, const picture_names &names) {
    std::vector<std::string> lines;
    for (i32 at = 0; at < list->length;) {
        const u8 id = list->bytes[at++];
        lines.push_back(line_of(id, list->bytes + at, names));
        at += DRAW_COMMANDS[id].size;
    }
    list->length = 0;
    return lines;
}

} // namespace recording_detail

inline recording take_recording(const picture_names &names) {
    draw_queue.pending = false;
    return {.now = recording_detail::take(&draw_queue.lists[draw_queue.recording], names),
            .next = recording_detail::take(&draw_queue.lists[draw_queue.recording ^ 1], names)};
}
