// title_rows.h: the title's list rows, heading, star and sub-heading.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

namespace art {

// The row of puzzle `type` in the list: icon tile and strip, drawn for its place on the blackboard.
canvas draw_list_row(int type);

// The game's name as six jigsaw pieces; ends in hard outlines because it moves over the blackboard.
canvas draw_heading();

// The gold star beside a mastered puzzle.
canvas draw_master_star();

// The line of words under the heading, for a blend onto the blackboard.
canvas draw_sub_heading();

} // namespace art
