// splash_scene.h: the picture that the first screen reveals.
//
// One thread; failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "canvas.h"

namespace art {

// Where the picture stands on the blackboard, pixels. It is fully opaque and only fits there.
inline constexpr int SPLASH_SCENE_X = 234, SPLASH_SCENE_Y = 145, SPLASH_SCENE_W = 424, SPLASH_SCENE_H = 400;

// A jigsaw of nine pieces, one of them not yet in its place.
canvas draw_splash_scene();

} // namespace art
