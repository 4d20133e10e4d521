// sets.h: the picture sets that tavimo-art can draw. Each function writes one set through art::save;
// the table in main.cpp names them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

namespace art {

void make_font();           // font/normal/
void make_background();     // bg/001
void make_title();          // title/ (58)
void make_splash();         // splash/ (13)
void make_dialog();         // dialog/ (9)
void make_study();          // study/ (15)
void make_score();          // score/ (1)
void make_credits();        // credits/ (7)
void make_cursors();        // control/mouse/
void make_effects();        // field/flare, field/burn/small and large, field/confetti
void make_puzzle(int type); // the folder of one puzzle type, 0..10

} // namespace art
