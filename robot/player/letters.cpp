// letters.cpp: the font, seen letter by letter.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "letters.h"
#include "entry_names.h"
#include "eyes.h"
#include "graphics/glyph_names.h"
#include "library.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

static constexpr int LINE = 17, GAP = 1; // pixels between lines and between letters
static constexpr int ASCENT = 32;        // more than any letter's height
static constexpr int FULL = 255;
static constexpr int PULSE_DARKEST = 183, PULSE_STEP = 4; // greys of a pulsing text

struct letter {
    const picture *shape;
    int below; // rows that it reaches below the reference line: those that are empty at its top
};

static const std::map<char, letter> &font() {
    static const std::map<char, letter> all = [] {
        std::map<char, letter> made;
        each_glyph([&made](char c, std::string_view name) {
            const picture &p = library_picture(entry_of_glyph(name));
            const auto first = std::find(p.opaque.begin(), p.opaque.end(), true);
            const auto row = first == p.opaque.end() ? 0 : (first - p.opaque.begin()) / p.width;
            made[c] = {&p, static_cast<int>(row)};
        });
        return made;
    }();
    return all;
}

// The letters of a text and where their corners lie, the first line's reference line at 0.
static std::vector<picture_layer> lay_out(const std::string &text) {
    std::vector<picture_layer> letters;
    point at;
    for (const char c : text) {
        if (c == '\n')
            at = {0, at.y + LINE};
        const auto found = font().find(c);
        if (found == font().end())
            continue;
        const auto [shape, below] = found->second;
        letters.push_back({shape, at + point{0, below - shape->height}});
        at.x += shape->width + GAP;
    }
    return letters;
}

int letters_width(const std::string &text) {
    int width = 0;
    for (const auto &[shape, at] : lay_out(text))
        width = std::max(width, at.x + shape->width + GAP);
    return width;
}

int letters_centre(const std::string &text) {
    return window_centre(letters_width(text));
}

static u8 dimmed(int level, int by) {
    return static_cast<u8>(level * by / FULL);
}

// The text's picture in this colour, its first reference line at ASCENT; made once.
static const picture &coloured(const std::string &text, rgb colour) {
    static std::map<std::tuple<std::string, int, int, int>, picture> made;
    const auto [found, is_new] = made.try_emplace({text, colour.r, colour.g, colour.b});
    if (!is_new)
        return found->second;
    std::vector<picture_layer> letters = lay_out(text);
    int bottom = 0;
    for (auto &[shape, at] : letters) {
        at.y += ASCENT;
        bottom = std::max(bottom, at.y + shape->height);
    }
    picture p = picture_collage(picture_empty(letters_width(text), bottom), letters);
    for (colour565 &pixel : p.pixels) {
        const rgb from = pixel16::to_rgb(pixel);
        pixel = pixel16::from_rgb({dimmed(from.r, colour.r), dimmed(from.g, colour.g), dimmed(from.b, colour.b)});
    }
    return found->second = p;
}

bool letters_seen(const std::string &text, point at, rgb colour) {
    const int lines = static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    return text.empty() || eyes_see(coloured(text, colour), at - point{0, ASCENT + LINE * lines});
}

bool letters_seen_pulsing(const std::string &text, point at) {
    for (int grey = FULL; grey >= PULSE_DARKEST; grey -= PULSE_STEP)
        if (letters_seen(text, at, grey_of(grey)))
            return true;
    return false;
}

void letters_until(const std::string &text, point at, rgb colour) {
    eyes_until("the text \"" + text + "\" at " + eyes_place(at), [&] { return letters_seen(text, at, colour); });
}

void letters_until_centred(const std::string &text, int y, rgb colour) {
    letters_until(text, {letters_centre(text), y}, colour);
}
