// picture_png.h: PNG in and out. Failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

#include <string_view>

raster picture_from_png(std::string_view bytes, const std::string &name);
std::string picture_to_png(const raster &source, const std::string &name);
