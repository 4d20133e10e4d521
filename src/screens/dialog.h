// dialog.h: one modal screen for four dialogs over a dimmed copy of the previous screen.
//
// Main thread. What memory is short for is left out and logged. A screen prepares a dialog with one of the set-up
// functions and requests SCREEN_DIALOG; every answer requests the next screen.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// The screen's operations, for the screen table.
[[nodiscard]] i32 dialog_init(); // 1, or -1 when a picture cannot be loaded or memory is short (logged)
void dialog_shutdown();
void dialog_enter();
void dialog_update();
void dialog_draw();

// Set-up functions; each forgets the dialog before.
void dialog_ask_exit();
void dialog_ask_return_to_title();
void dialog_enter_name(bool then_play);                       // confirmed: the play screen, else the title
void dialog_completed(i32 master_place, const char *message); // master_place -1: no master's score

// Records the run that dialog_completed congratulates on, once: when that is confirmed, or the program ends before.
void dialog_record_completed();
