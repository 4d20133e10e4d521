// screen_table.cpp: the operations of the seven screens, in the order play, title, study, dialog, score log,
// credits, splash.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "screens/screen_table.h"

#include "screens/credits.h"
#include "screens/dialog.h"
#include "screens/play.h"
#include "screens/score_log.h"
#include "screens/splash.h"
#include "screens/study.h"
#include "screens/title.h"

namespace {

void none() {}

} // namespace

// clang-format off
const screen_operations screen_table = {
    .init     = {play_init,   title_init,     study_init,     dialog_init,     score_log_init,     credits_init,     splash_init},
    .shutdown = {none,        title_shutdown, study_shutdown, dialog_shutdown, score_log_shutdown, credits_shutdown, splash_shutdown},
    .update   = {play_update, title_update,   study_update,   dialog_update,   score_log_update,   credits_update,   splash_update},
    .draw     = {play_draw,   title_draw,     study_draw,     dialog_draw,     score_log_draw,     credits_draw,     splash_draw},
    .tick     = {none,        none,           none,           none,            none,               none,             none},
    .late     = {none,        none,           none,           none,            none,               none,             none},
    .enter    = {play_enter,  title_enter,    study_enter,    dialog_enter,    score_log_enter,    credits_enter,    splash_enter},
    .leave    = {none,        title_leave,    none,           none,            none,               none,             none},
};
// clang-format on
