// picture_reduce.h: from any picture to one that an archive can hold. Failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "picture.h"

// Makes every pixel opaque or transparent and reduces the colours to 5-6-5 by ordered dithering; a colour that is
// 5-6-5 already stays as it is. Where that leaves more colours than an XPM can hold, to fewer shades. Fails with
// the name, the pixel and the way out where an opaque pixel would turn transparent.
raster picture_reduce(const raster &source, const std::string &name);
