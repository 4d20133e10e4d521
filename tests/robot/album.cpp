// album.cpp: the captions, the pictures and the page.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "album.h"
#include "eyes.h"
#include "robot.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>
#include <vector>

// Where on the way a picture belongs in the tour.
enum class showing { OUTSIDE, FIRST_PUZZLE, EACH_PUZZLE };

struct stop {
    const char *name;
    showing when;
    const char *caption; // an asterisk stands for the puzzle
};

// clang-format off
static constexpr std::array STOPS = {
    stop{"splash",         showing::OUTSIDE,      "The splash screen shows what there is to play."},
    stop{"title",          showing::OUTSIDE,      "The title screen: eleven puzzles, and the buttons for everything else."},
    stop{"title-help",     showing::OUTSIDE,      "Help bubbles explain the title screen."},
    stop{"credits",        showing::OUTSIDE,      "The credits roll by."},
    stop{"title-selected", showing::FIRST_PUZZLE, "A puzzle is chosen."},
    stop{"study",          showing::EACH_PUZZLE,  "*: the board to study, with an example and a trick worth knowing."},
    stop{"study-clear",    showing::FIRST_PUZZLE, "The study board can be cleared; a click puts a piece back or takes it out."},
    stop{"study-help",     showing::FIRST_PUZZLE, "Help on the study screen."},
    stop{"name",           showing::FIRST_PUZZLE, "The player's name goes into the score log."},
    stop{"play-help",      showing::EACH_PUZZLE,  "*: help bubbles show how it is played."},
    stop{"begin",          showing::EACH_PUZZLE,  "*, before the first move. The clock waits."},
    stop{"question",       showing::FIRST_PUZZLE, "A run is not given up by accident."},
    stop{"wrong-drop",     showing::EACH_PUZZLE,  "*: a piece that does not belong there stays loose."},
    stop{"wrong-answer",   showing::EACH_PUZZLE,  "*: a wrong answer falls apart."},
    stop{"play",           showing::EACH_PUZZLE,  "*, half of the pieces placed."},
    stop{"completed",      showing::EACH_PUZZLE,  "* completed."},
    stop{"score-log",      showing::EACH_PUZZLE,  "The score log of *: the masters, and one's own runs."},
    stop{"exit",           showing::OUTSIDE,      "The game asks before it ends."},
    stop{"closing",        showing::OUTSIDE,      "The closing splash."},
};
// clang-format on

static constexpr const char *PAGE_HEAD = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>A tour of Tavimo</title>
<style>
body { margin: 2rem auto; max-width: 1240px; padding: 0 1rem; font: 1.05rem/1.5 sans-serif; background: #f4f1ea; color: #263238; }
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
static bool guided;
static double pause_seconds;
static const puzzle_kind *about;
static std::vector<page_entry> pages;

void album_open(const std::string &chosen) {
    std::filesystem::create_directories(chosen);
    folder = chosen;
}

void album_guide(double seconds) {
    guided = true;
    pause_seconds = seconds;
}

void album_about(const puzzle_kind *puzzle) {
    about = puzzle;
}

// The caption of a picture that belongs into the tour now; null: none, or not again.
static const stop *next_stop(const std::string &name) {
    static std::set<std::string> taken;
    const auto found = std::find_if(STOPS.begin(), STOPS.end(), [&](const stop &s) { return s.name == name; });
    if (found == STOPS.end() || (found->when == showing::OUTSIDE) != (about == nullptr))
        return nullptr;
    const bool each = found->when == showing::EACH_PUZZLE;
    return taken.insert(each ? name + about->title : name).second ? &*found : nullptr;
}

static std::string caption_of(const stop &at) {
    std::string caption = at.caption;
    if (const std::size_t star = caption.find('*'); star != std::string::npos)
        caption.replace(star, 1, about->title);
    return caption;
}

void album_snap(const std::string &name) {
    const stop *at = guided ? next_stop(name) : nullptr;
    if (folder.empty() || (guided && at == nullptr))
        return;
    char number[16];
    std::snprintf(number, sizeof number, "%02zu-", pages.size() + 1);
    const std::string type = about != nullptr ? "-" + std::to_string(about->type) : "";
    pages.push_back({number + name + type + ".png", at != nullptr ? caption_of(*at) : name});
    eyes_look();
    eyes_save(folder + "/" + pages.back().file);
    if (!guided)
        return;
    robot_say(pages.back().file + ": " + pages.back().caption);
    std::this_thread::sleep_for(std::chrono::duration<double>(pause_seconds));
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
