// title_wipe.h: the way from the title screen into study mode: the craft table opens from the centre, then the
// night background. Draws directly on the main thread while the render thread is paused; takes about a second.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

void title_wipe_to_study(); // returns when the last step has been shown
