// title.h: those pictures of the title's set that have a file of their own. Each returns or writes finished
// pictures; one thread, and nothing fails except by ending the program with a message.
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

// The craft table being set, SCREEN_WIDTH x SCREEN_HEIGHT.
canvas draw_craft_table();

// A small, valid picture for a number that no screen shows.
canvas draw_spare();

} // namespace art
