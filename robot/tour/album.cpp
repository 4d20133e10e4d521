// album.cpp: the captions, the pictures and the page.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "album.h"
#include "player/display.h"
#include "player/eyes.h"
#include "player/moments.h"
#include "player/robot.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>
#include <utility>
#include <vector>

// Where on the way a picture belongs in the tour.
enum class showing { OUTSIDE, FIRST_PUZZLE, EACH_PUZZLE };

struct stop {
    moment what;
    const char *name; // of the picture's file
    showing when;
    const char *caption; // an asterisk stands for the puzzle
};

// clang-format off
static constexpr std::array STOPS = {
    stop{moment::SPLASH,       "splash",         showing::OUTSIDE,      "The splash screen shows what there is to play."},
    stop{moment::TITLE,        "title",          showing::OUTSIDE,      "The title screen: eleven puzzles, and the buttons for everything else."},
    stop{moment::TITLE_HELP,   "title-help",     showing::OUTSIDE,      "Help bubbles explain the title screen."},
    stop{moment::CREDITS,      "credits",        showing::OUTSIDE,      "The credits roll by."},
    stop{moment::SELECTED,     "title-selected", showing::FIRST_PUZZLE, "A puzzle is chosen."},
    stop{moment::STUDY,        "study",          showing::EACH_PUZZLE,  "*: the board to study, with an example and a trick worth knowing."},
    stop{moment::STUDY_CLEAR,  "study-clear",    showing::FIRST_PUZZLE, "The study board can be cleared; a click puts a piece back or takes it out."},
    stop{moment::STUDY_HELP,   "study-help",     showing::FIRST_PUZZLE, "Help on the study screen."},
    stop{moment::NAME,         "name",           showing::FIRST_PUZZLE, "The player's name goes into the score log."},
    stop{moment::PLAY_HELP,    "play-help",      showing::EACH_PUZZLE,  "*: help bubbles show how it is played."},
    stop{moment::BEGIN,        "begin",          showing::EACH_PUZZLE,  "*, before the first move. The clock waits."},
    stop{moment::QUESTION,     "question",       showing::FIRST_PUZZLE, "A run is not given up by accident."},
    stop{moment::WRONG_DROP,   "wrong-drop",     showing::EACH_PUZZLE,  "*: a piece that does not belong there stays loose."},
    stop{moment::WRONG_ANSWER, "wrong-answer",   showing::EACH_PUZZLE,  "*: a wrong answer falls apart."},
    stop{moment::HALF,         "play",           showing::EACH_PUZZLE,  "*, half of the pieces placed."},
    stop{moment::COMPLETED,    "completed",      showing::EACH_PUZZLE,  "* completed."},
    stop{moment::SCORE_LOG,    "score-log",      showing::EACH_PUZZLE,  "The score log of *: the masters, and one's own runs."},
    stop{moment::EXIT,         "exit",           showing::OUTSIDE,      "The game asks before it ends."},
    stop{moment::CLOSING,      "closing",        showing::OUTSIDE,      "The closing splash."},
};
// clang-format on

static constexpr const char *PAGE_HEAD = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>A tour of Tavimo</title>
<style>
body { margin: 2rem auto; max-width: 1240px; padding: 0 1rem; font: 1.05rem/1.5 sans-serif; background: #f4f1ea; colour: #263238; }
h1 { margin-bottom: 0; }
main { display: grid; grid-template-columns: repeat(auto-fill, minmax(370px, 1fr)); gap: 1.5rem; }
figure { margin: 0; background: #fff; border-radius: 6px; overflow: hidden; box-shadow: 0 1px 4px #0003; }
img { display: block; width: 100%; height: auto; }
figcaption { padding: .6rem .9rem .8rem; }
</style>
</head>
<body>
<h1>A tour of Tavimo</h1>
<p>Taken by a robot that played the game as a child does, with a mouse, a keyboard and what it saw.</p>
<main>
)";

struct page_entry {
    std::string file, caption;
};

static std::string folder;
static std::vector<page_entry> pages;

// The caption of a picture that belongs into the tour now; null: none, or not again.
static const stop *next_stop(moment what, const puzzle_kind *puzzle) {
    static std::set<std::pair<moment, const puzzle_kind *>> taken;
    const auto found = std::find_if(STOPS.begin(), STOPS.end(), [&](const stop &s) { return s.what == what; });
    if (found == STOPS.end() || (found->when == showing::OUTSIDE) != (puzzle == nullptr))
        return nullptr;
    return taken.emplace(what, found->when == showing::EACH_PUZZLE ? puzzle : nullptr).second ? &*found : nullptr;
}

static std::string caption_of(const stop &at, const puzzle_kind *puzzle) {
    std::string caption = at.caption;
    if (const std::size_t star = caption.find('*'); star != std::string::npos)
        caption.replace(star, 1, puzzle_title(puzzle->type));
    return caption;
}

static void take_picture(const stop &at, const puzzle_kind *puzzle) {
    char number[16];
    std::snprintf(number, sizeof number, "%02zu-", pages.size() + 1);
    const std::string type = puzzle != nullptr ? "-" + std::to_string(puzzle->type) : "";
    pages.push_back({number + std::string(at.name) + type + ".png", caption_of(at, puzzle)});
    eyes_look();
    display_save(folder + "/" + pages.back().file);
    robot_say(pages.back().file + ": " + pages.back().caption);
}

void album_open(const std::string &chosen, double seconds_each) {
    std::filesystem::create_directories(chosen);
    folder = chosen;
    moments_listen([seconds_each](moment what, const puzzle_kind *puzzle) {
        const stop *at = next_stop(what, puzzle);
        if (at == nullptr)
            return;
        take_picture(*at, puzzle);
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds_each));
    });
}

void album_write_index() {
    std::ofstream page(folder + "/index.html");
    page << PAGE_HEAD;
    for (const page_entry &entry : pages)
        page << "<figure><a href=\"" << entry.file << "\"><img src=\"" << entry.file
             << "\" alt=\"\" loading=\"lazy\"></a>"
             << "<figcaption>" << entry.caption << "</figcaption></figure>\n";
    page << "</main>\n</body>\n</html>\n";
    page.close();
    robot_expect(page.good(), "the page " + folder + "/index.html can be written");
}
