// dates.cpp: the local time as text.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/dates.h"

#include <cstdio>
#include <ctime>
#include <iterator>

static constexpr int TM_YEAR_BASE = 1900, TM_MONTH_BASE = 1; // what struct tm leaves out

const char *month_abbrev(i32 month) {
    static constexpr const char *NAMES[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return month >= 0 && month < static_cast<i32>(std::size(NAMES)) ? NAMES[month] : nullptr;
}

static std::tm local_now() {
    const std::time_t now = std::time(nullptr);
    std::tm parts = {};
    localtime_r(&now, &parts); // stays zeroed should the zone data be unusable
    return parts;
}

// The zone is always written as +0000.
date_text log_timestamp() {
    const std::tm now = local_now();
    date_text stamp;
    std::snprintf(stamp.text, sizeof stamp.text, "%.2d/%s/%.4d %.2d:%.2d:%.2d +0000", now.tm_mday,
                  month_abbrev(now.tm_mon), now.tm_year + TM_YEAR_BASE, now.tm_hour, now.tm_min, now.tm_sec);
    return stamp;
}

date_text date_stamp() {
    const std::tm now = local_now();
    date_text stamp;
    std::snprintf(stamp.text, sizeof stamp.text, "%.4d-%.2d-%.2d %.2d:%.2d", now.tm_year + TM_YEAR_BASE,
                  now.tm_mon + TM_MONTH_BASE, now.tm_mday, now.tm_hour, now.tm_min);
    return stamp;
}
