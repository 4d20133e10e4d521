// dates.h: the local time as text. Any thread may call; nothing fails, nothing is owned.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "core/base/types.h"

struct date_text {
    char text[64];
};

date_text log_timestamp();           // such as 07/Mar/2004 14:05:09 +0000
date_text date_stamp();              // such as 2004-03-07 14:05
const char *month_abbrev(i32 month); // "Jan" .. "Dec" for 0..11, else null
