// buttons.cpp: raised plates, the pictograms, and buttons made of both.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "buttons.h"

#include "save.h"
#include "text.h"

#include "paths.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace art {

namespace {

// --- Plates --------------------------------------------------------------------------------------

constexpr rgb WHITE = {1, 1, 1}, BLACK = {0, 0, 0};
constexpr rgb GLOW = hex(0xFFB42E);
constexpr double GLOW_WIDTH = 1.4, GLOW_INSET = 2.7; // pixels; the inset is that of the line's middle
constexpr double HOVER_WHITE = 0.45;                 // how far hovering moves a face to white
constexpr double PRESSED_DARKER = -0.07;             // OKLab lightness
constexpr double EDGE_LIGHT = 0.85, EDGE_SHADE = 0.45, PRESSED_SHADE = 0.30;
constexpr double MAX_RADIUS = 9, RADIUS_PER_HEIGHT = 0.3;

struct box {
    double x, y, w, h, radius;
};

box inset(const box &b, double by) {
    return {b.x + by, b.y + by, b.w - 2 * by, b.h - 2 * by, std::max(b.radius - by, 0.0)};
}

void box_path(cairo_t *cr, const box &b) {
    rounded_rect(cr, b.x, b.y, b.w, b.h, b.radius);
}

// Tints the rim of the box on the side that light coming from (-dx, -dy) meets or misses: what the
// box covers and its copy moved by (dx, dy) does not.
void tint_edge(cairo_t *cr, const box &b, double dx, double dy, rgb colour, double alpha) {
    cairo_save(cr);
    box_path(cr, b);
    cairo_clip(cr);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    box_path(cr, b);
    box_path(cr, {b.x + dx, b.y + dy, b.w, b.h, b.radius});
    fill(cr, colour, alpha);
    cairo_restore(cr);
}

void fill_face(cairo_t *cr, const box &face, rgb top, rgb middle, rgb bottom) {
    cairo_pattern_t *gradient = cairo_pattern_create_linear(0, face.y, 0, face.y + face.h);
    cairo_pattern_add_color_stop_rgb(gradient, 0.0, top.r, top.g, top.b);
    cairo_pattern_add_color_stop_rgb(gradient, 0.5, middle.r, middle.g, middle.b);
    cairo_pattern_add_color_stop_rgb(gradient, 1.0, bottom.r, bottom.g, bottom.b);
    box_path(cr, face);
    cairo_set_source(cr, gradient);
    cairo_fill(cr);
    cairo_pattern_destroy(gradient);
}

// The nearest colour of a 16-bit screen, so that dithering leaves a flat face flat.
rgb screen_colour(rgb c) {
    return {std::round(c.r * 31) / 31, std::round(c.g * 63) / 63, std::round(c.b * 31) / 31};
}

void draw_pressed_face(cairo_t *cr, const plate_skin &skin, const box &face) {
    box_path(cr, face);
    fill(cr, screen_colour(lighten(skin.middle, PRESSED_DARKER)));
    tint_edge(cr, face, 2, 2, skin.outline, PRESSED_SHADE / 2);
    tint_edge(cr, face, 1, 1, skin.outline, PRESSED_SHADE);
    tint_edge(cr, face, -1, -1, WHITE, EDGE_SHADE / 2);
}

void draw_raised_face(cairo_t *cr, const plate_skin &skin, const box &face, bool hover) {
    const double white = hover ? HOVER_WHITE : 0;
    fill_face(cr, face, mix(skin.top, WHITE, white), mix(skin.middle, WHITE, white), mix(skin.bottom, WHITE, white));
    tint_edge(cr, face, -1, 0, skin.side, EDGE_SHADE);
    tint_edge(cr, face, 1, 1, WHITE, EDGE_LIGHT);
    if (hover) {
        box_path(cr, inset(face, GLOW_INSET - 1));
        stroke(cr, GLOW, GLOW_WIDTH);
    }
}

// --- Pictograms ----------------------------------------------------------------------------------

constexpr double ICON_UNITS = 18; // the square that the pictograms below are drawn in
constexpr double THINNEST = 1.6;  // device pixels

constexpr drawn_part BOOK[] = {
    {"M0 3.6 C2.6 2 5.6 2 8 3.6 L8 15.4 C5.6 13.9 2.6 13.9 0 15.4 Z"},
    {"M18 3.6 C15.4 2 12.4 2 10 3.6 L10 15.4 C12.4 13.9 15.4 13.9 18 15.4 Z"},
};
constexpr drawn_part BARS[] = {
    {"M1 9 L5 9 L5 15 L1 15 Z M7 2 L11 2 L11 15 L7 15 Z M13 6 L17 6 L17 15 L13 15 Z M0 16 L18 16 L18 17 L0 17 Z"},
};
constexpr drawn_part PENCIL[] = {
    {"M1 17 L2.3 12.3 L5.7 15.7 Z"},
    {"M3.1 11.3 L10.5 3.9 L14.1 7.5 L6.7 14.9 Z"},
    {"M11.6 2.8 L13 1.4 C13.8 .6 14.8 .6 15.6 1.4 L16.6 2.4 C17.4 3.2 17.4 4.2 16.6 5 L15.2 6.4 Z"},
};
constexpr drawn_part PERSON[] = {
    {"O 9 5 4"},
    {"M1 17 C1 12.4 4 10.4 9 10.4 C14 10.4 17 12.4 17 17 Z"},
};
constexpr drawn_part QUESTION[] = {
    // The mark itself is a hole in the disc: a hook and a dot.
    {"O 9 9 8.6 O 9 13.3 1.35 "
     "M5.6 6.9 C5.6 4.7 7.1 3.3 9.1 3.3 C11.2 3.3 12.6 4.6 12.6 6.4 C12.6 8 11.8 8.8 10.8 9.5 C10.2 9.9 10 10.2 10 11 "
     "L8 11 C8 9.5 8.5 8.7 9.4 8 C10.2 7.4 10.5 7.1 10.5 6.4 C10.5 5.7 9.9 5.2 9.1 5.2 C8.2 5.2 7.7 5.8 7.7 6.9 Z"},
};
constexpr drawn_part DOOR[] = {
    {"M9 2 L2 2 L2 16 L9 16", 2},
    {"M7 9 L16 9 M12 4.6 L16.4 9 L12 13.4", 2.2},
};
constexpr drawn_part GLOBE[] = {
    {"O 9 9 7.8", 1.5},
    {"M9 1.2 C4.4 5 4.4 13 9 16.8 C13.6 13 13.6 5 9 1.2 Z M9 1.2 L9 16.8", 1.2},
    {"M1.2 9 L16.8 9 M2.9 4.9 L15.1 4.9 M2.9 13.1 L15.1 13.1", 1.2},
};
constexpr drawn_part PLAY[] = {
    {"M3.5 2.4 L15.5 9 L3.5 15.6 Z"},
    {"M3.5 2.4 L15.5 9 L3.5 15.6 Z", 1.4},
};
constexpr drawn_part BACK[] = {
    {"M2 9 L16.6 9 M8 3 L2 9 L8 15", 2.4},
};
constexpr drawn_part GRID[] = {
    {"R 1 1 7 7 1 R 10 1 7 7 1 R 1 10 7 7 1 R 10 10 7 7 1"},
};
// The same four, taken out.
constexpr drawn_part SPACES[] = {
    {"R 1.9 1.9 5.2 5.2 .6 R 10.9 1.9 5.2 5.2 .6 R 1.9 10.9 5.2 5.2 .6 R 10.9 10.9 5.2 5.2 .6", 1.8},
};
constexpr drawn_part TICK[] = {
    {"M2.6 9.6 L7 14 L15.4 4", 3},
};
constexpr drawn_part CROSS[] = {
    {"M3.6 3.6 L14.4 14.4 M14.4 3.6 L3.6 14.4", 3},
};
// In the order of the enumeration.
constexpr std::array<std::span<const drawn_part>, 14> ICONS = {{
    {},
    BOOK,
    BARS,
    PENCIL,
    PERSON,
    QUESTION,
    DOOR,
    GLOBE,
    PLAY,
    BACK,
    SPACES,
    GRID,
    TICK,
    CROSS,
}};
static_assert(ICONS.size() == static_cast<std::size_t>(icon::cross) + 1);

// --- Layout of a button --------------------------------------------------------------------------

constexpr int ICON_CENTRE = 20; // x on a full-size button
constexpr int FULL_HEIGHT = 30; // a lower button has the small pictogram
constexpr double ICON_SIZE = 18, SMALL_ICON_SIZE = 11;
constexpr int SMALL_MARGIN = 6, GAP = 4, RIGHT_MARGIN = 4; // pixels

struct layout {
    double icon_x, icon_y, icon_size;
    double label_centre, baseline;
};

layout arrange(const button_style &style, bool with_icon, std::string_view label) {
    const bool full = style.height >= FULL_HEIGHT;
    const int face_height = style.height - HONEY_SKIN.side_height - 2;
    const double middle = 1 + face_height / 2.0;
    layout l = {.icon_x = 0,
                .icon_y = 0,
                .icon_size = full ? ICON_SIZE : SMALL_ICON_SIZE,
                .label_centre = style.width / 2.0,
                .baseline = std::round(middle + style.cap_height / 2)};
    if (label.empty())
        l.icon_size = ICON_SIZE;
    l.icon_y = std::ceil(middle - l.icon_size / 2);
    if (!with_icon)
        return l;
    if (label.empty()) {
        l.icon_x = std::floor((style.width - l.icon_size) / 2);
        return l;
    }
    l.icon_x = full ? ICON_CENTRE - l.icon_size / 2 : SMALL_MARGIN;
    const double free_from = l.icon_x + l.icon_size;
    const double half = text_width(face::dosis_bold, style.cap_height, label) / 2;
    l.label_centre = std::max((free_from + style.width - RIGHT_MARGIN) / 2, free_from + GAP + half);
    return l;
}

} // namespace

void draw_plate(cairo_t *cr, const plate_skin &skin, button_look look, int x, int y, int w, int h) {
    const bool pressed = look == BUTTON_LOOK_PRESSED;
    const double side = pressed ? skin.pressed_side_height : skin.side_height;
    const box whole = {.x = 1.0 * x,
                       .y = 1.0 * y,
                       .w = 1.0 * w,
                       .h = 1.0 * h,
                       .radius = std::min(MAX_RADIUS, std::round(h * RADIUS_PER_HEIGHT))};
    box face = inset(whole, 1);
    box_path(cr, whole);
    fill(cr, skin.outline);
    box_path(cr, face);
    fill_gradient(cr, 0, y + h - side - 1, skin.side, 0, y + h, mix(skin.side, BLACK, 0.12));
    face.h -= side;
    if (pressed)
        draw_pressed_face(cr, skin, face);
    else
        draw_raised_face(cr, skin, face, look == BUTTON_LOOK_HOVER);
}

void draw_icon(cairo_t *cr, icon pictogram, double x, double y, double size, rgb colour) {
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, size / ICON_UNITS, size / ICON_UNITS);
    draw_parts(cr, ICONS[static_cast<std::size_t>(pictogram)], colour, size < ICON_UNITS ? THINNEST : 0);
    cairo_restore(cr);
}

void draw_next_mark(cairo_t *cr, double x, double y, rgb card) {
    constexpr double CARD_W = 12, CARD_H = 17, CARD_AWAY = 9.5, CARD_TURN = -0.09, CARD_LINE = 1.4;
    constexpr double SHAFT = 2, TIP = 16, HEAD = 5.5, ARROW_LINE = 2.6;
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_save(cr);
    cairo_translate(cr, -CARD_AWAY, 0);
    cairo_rotate(cr, CARD_TURN);
    rounded_rect(cr, -CARD_W / 2, -CARD_H / 2, CARD_W, CARD_H, 2);
    fill_keep(cr, card);
    stroke(cr, HONEY_SKIN.ink, CARD_LINE);
    cairo_restore(cr);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_move_to(cr, SHAFT, 0);
    cairo_line_to(cr, TIP, 0);
    cairo_move_to(cr, TIP - HEAD, -HEAD);
    cairo_line_to(cr, TIP, 0);
    cairo_line_to(cr, TIP - HEAD, HEAD);
    stroke(cr, HONEY_SKIN.ink, ARROW_LINE);
    cairo_restore(cr);
}

canvas draw_button(const button_style &style, button_look look, icon pictogram, std::string_view label) {
    const plate_skin &skin = style.green ? GREEN_SKIN : HONEY_SKIN;
    canvas picture(style.width, style.height);
    draw_plate(picture, skin, look, 0, 0, style.width, style.height);
    const layout l = arrange(style, pictogram != icon::none, label);
    draw_icon(picture, pictogram, l.icon_x, l.icon_y, l.icon_size, skin.ink);
    text(picture, face::dosis_bold, style.cap_height, l.label_centre, l.baseline, align::centre, label, skin.ink);
    return picture;
}

void save_button(const button_style &style, icon pictogram, std::string_view label, const picture_set &set,
                 const set_part &pictures) {
    for (const button_look look : BUTTON_LOOKS)
        save(draw_button(style, look, pictogram, label), entry_of(set, pictures[look]), {.dither = true});
}

} // namespace art
