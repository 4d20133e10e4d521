// render.h: the render thread, its lock for recording, and pausing it.
//
// Main thread. Which lock guards what stands in graphics/locks.h. Drawing reports no failure: what cannot be shown is
// left out.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

#include <SDL_thread.h>

// Starts the render thread. Null on failure (SDL_GetError).
[[nodiscard]] SDL_Thread *render_start();
void render_stop(SDL_Thread *thread); // waits for its end, once APP_QUIT is set; everything recorded has been played

// One pass of it: takes what was recorded, plays it, shows what changed, and is then ready for a new list. It can
// stand in for the thread, so that frames are played one by one; frames can be recorded after its first call.
void render_pass();

// Takes the render lock; true when the render thread is ready for a new list, that is, when this frame may
// be recorded. Always end with render_end_frame.
[[nodiscard]] bool render_begin_frame();
void render_end_frame();

// Takes the surface lock once the render thread has taken what was recorded (n = 2: and has shown it).
// Without a running render thread nothing happens.
void render_pause(i32 n);
void render_resume(); // gives the surface lock back, if it is held

// Waits until every recorded list has been played: pictures that they refer to may then be freed. Without a running
// render thread nothing happens.
void render_wait_until_played();
