// repeat.h: telling a list that would change nothing, so that a screen on which nothing moves is not drawn anew.
//
// Most frames of an idle screen are recorded byte for byte alike. Once such a list, played from a screen, has left
// that same screen behind, playing it again can only do so again: unless it reaches further than the screen and the
// slots it saves itself, or a picture has changed, or something else has drawn. Under the surface lock.
//
// Lists are compared byte by byte, so a record must have no padding that recording leaves as it finds it: the members
// `unused` of the records in draw_ops.h take its place and are 0. Pictures are compared by address: that one was freed
// or has new runs is told by image_changes().
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <span>

// Whether playing this list would leave everything as it is. pictures: image_changes(), asked after the list was
// taken.
[[nodiscard]] bool repeat_is_steady(std::span<const u8> list, u32 pictures);

// To be called after every list that was played, with whether it changed what the window shows.
void repeat_note(std::span<const u8> list, u32 pictures, bool shown);

void repeat_forget(); // something else than a list has drawn
void repeat_free();   // back to the state before start-up
