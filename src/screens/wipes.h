// wipes.h: the two ways from screen to screen that show in between. Drawn directly on the main thread while the render
// thread is paused; each takes up to a second and returns when its last step has been shown.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

void wipe_to_study(); // the craft table opens from the centre, then the night background
void wipe_to_black(); // a black band opens from the centre line over the last frame, which the background keeps
