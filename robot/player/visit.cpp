// visit.cpp: through a puzzle's screens.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "visit.h"
#include "dialogs.h"
#include "moments.h"
#include "play.h"
#include "robot.h"
#include "study.h"
#include "title.h"

#include <string>

void visit(const puzzle_kind &kind, const visit_plan &plan) {
    robot_say(std::string("visits ") + puzzle_title(kind.type));
    moments_about(&kind);
    title_select(kind);
    title_study();
    study_enter(kind);
    if (plan.play) {
        if (plan.wander)
            study_explore(kind);
        study_play();
        play_puzzle(kind, plan.wander);
        completion_confirm(kind);
        score_log_watch();
    } else {
        study_back();
    }
    moments_about(nullptr);
}
