// picture.h: pictures as the robot knows them, in the screen's 5-6-5 colours, and how they are put together.
//
// One thread. Pictures are plain values. One that cannot be decoded ends the robot.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "resources/pixel.h"

#include <functional>
#include <string>
#include <vector>

using colour565 = pixel16::value;

// Whether two colours are the same but for the rounding of a channel.
bool colour_close(colour565 a, colour565 b);

struct picture {
    std::string name;
    int width = 0, height = 0;
    std::vector<colour565> pixels;
    std::vector<bool> opaque;
    std::vector<int> probes; // indices of the opaque pixels, scattered, so that a mismatch shows early
};

picture picture_decode(const std::string &name, const std::string &xpm);
bool picture_same(const picture &a, const picture &b);
bool picture_covers(const picture &p, point at); // whether it is opaque there; it is not outside
point picture_middle(const picture &p);
point picture_inside(const picture &outer, const picture &inner); // where it stands in the other's middle

struct picture_layer {
    const picture *above;
    point at; // its corner
};
picture picture_empty(int width, int height); // nothing of it is opaque
// The layers one over the other; what sticks out of the lowest is cut off.
picture picture_collage(picture lowest, const std::vector<picture_layer> &layers);

// The same picture where only a part is looked at.
picture picture_where(const picture &whole, const std::function<bool(point)> &kept);
picture picture_part(const picture &whole, const rect &kept);
