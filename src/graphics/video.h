// video.h: the video mode, the frame buffers and their locks.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

// Sets the 800 x 600 mode (16 bits before 32, full screen before a window), makes the locks and the buffers.
// 1, or -1 with the reason logged.
[[nodiscard]] i32 video_init();

// Destroys the locks and frees the buffers; safe when set-up never ran or stopped half-way. The render
// thread must have ended.
void video_shutdown();
