// letters.cpp: the font, seen letter by letter.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "letters.h"
#include "eyes.h"
#include "library.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <sstream>

static constexpr int LINE = 17, GAP = 1; // pixels between lines and between letters
static constexpr int FULL = 255;
static constexpr int PULSE_DARKEST = 183, PULSE_STEP = 4; // greys of a pulsing text

static constexpr std::array SIGNS = {
    std::pair{' ', "space"},      std::pair{'!', "exclamation"}, std::pair{'"', "quote"},
    std::pair{'%', "percent"},    std::pair{'$', "dollarsign"},  std::pair{'\'', "apostrophe"},
    std::pair{'(', "lparen"},     std::pair{')', "rparen"},      std::pair{',', "comma"},
    std::pair{'-', "dash"},       std::pair{'.', "period"},      std::pair{'/', "slash"},
    std::pair{':', "colon"},      std::pair{';', "semicolon"},   std::pair{'=', "tavimo"},
    std::pair{'+', "plus"},       std::pair{'<', "lessthan"},    std::pair{'>', "greaterthan"},
    std::pair{'?', "question"},   std::pair{'*', "asterisk"},    std::pair{'@', "copy"},
    std::pair{'[', "lbracket"},   std::pair{']', "rbracket"},    std::pair{'\\', "backslash"},
    std::pair{'_', "underscore"},
};

struct letter {
    const picture *shape;
    int below; // rows that it reaches below the reference line: those that are empty at its top
};

static const std::map<char, letter> &font() {
    static const std::map<char, letter> all = [] {
        std::map<char, letter> made;
        const auto add = [&made](char c, const std::string &file) {
            const picture &p = library_picture("font/normal/" + file + ".xpm");
            const auto first = std::find(p.opaque.begin(), p.opaque.end(), true);
            const auto row = first == p.opaque.end() ? 0 : (first - p.opaque.begin()) / p.width;
            made[c] = {&p, static_cast<int>(row)};
        };
        for (int c = 0; c <= FULL / 2; ++c)
            if (std::isalnum(c) != 0)
                add(static_cast<char>(c), std::string(1, static_cast<char>(c)));
        for (const auto &[sign, file] : SIGNS)
            add(sign, file);
        return made;
    }();
    return all;
}

static const letter *find_letter(char c) {
    const auto found = font().find(c);
    return found == font().end() ? nullptr : &found->second;
}

// The letter's picture in this colour; made once for each.
static const picture &colored(char c, rgb8 color) {
    static std::map<std::array<int, 4>, picture> made;
    const std::array<int, 4> key = {c, color.r, color.g, color.b};
    if (const auto found = made.find(key); found != made.end())
        return found->second;
    picture p = *font().at(c).shape;
    for (color565 &pixel : p.pixels) {
        const rgb8 from = from_565(pixel);
        pixel = to_565(from.r * color.r / FULL, from.g * color.g / FULL, from.b * color.b / FULL);
    }
    return made.emplace(key, std::move(p)).first->second;
}

static int line_width(const std::string &line) {
    int width = 0;
    for (const char c : line)
        if (const letter *l = find_letter(c))
            width += l->shape->width + GAP;
    return width;
}

int letters_width(const std::string &text) {
    int width = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        width = std::max(width, line_width(line));
    return width;
}

int letters_center(const std::string &text) {
    return window_center(letters_width(text));
}

// Some letters may be under the mouse cursor, but not all.
static bool line_seen(const std::string &line, point at, rgb8 color) {
    bool any = false;
    for (const char c : line) {
        const letter *l = find_letter(c);
        if (l == nullptr)
            continue;
        const point corner = {at.x, at.y + l->below - l->shape->height};
        if (eyes_contradict(colored(c, color), corner))
            return false;
        any |= eyes_see(colored(c, color), corner);
        at.x += l->shape->width + GAP;
    }
    return any || line.empty();
}

bool letters_seen(const std::string &text, point at, rgb8 color) {
    at.y -= LINE * static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line); at.y += LINE)
        if (!line_seen(line, at, color))
            return false;
    return true;
}

bool letters_seen_pulsing(const std::string &text, point at) {
    for (int grey = FULL; grey >= PULSE_DARKEST; grey -= PULSE_STEP)
        if (letters_seen(text, at, {grey, grey, grey}))
            return true;
    return false;
}

void letters_until(const std::string &text, point at, rgb8 color) {
    eyes_until("the text \"" + text + "\" at " + eyes_place(at), [&] { return letters_seen(text, at, color); });
}

void letters_until_centered(const std::string &text, int y, rgb8 color) {
    letters_until(text, {letters_center(text), y}, color);
}
