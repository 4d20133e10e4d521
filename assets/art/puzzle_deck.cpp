// puzzle_deck.cpp: cards, the next button, and the keypad with its digits.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzle_deck.h"

#include "buttons.h"
#include "puzzle.h"

#include <cmath>
#include <iterator>

namespace art {
namespace {

constexpr rgb WHITE = {1, 1, 1};
constexpr double CARD_RADIUS = 6, FIELD_RADIUS = 3;
constexpr double STRIPE_WIDTH = 1.6, STRIPE_PITCH = 6;

// A card is back and face in one: pattern in the rim only, plain cream where the label will stand.
canvas draw_card(const puzzle_measures &measures, const puzzle_colours &c) {
    const double w = measures.card_width, h = measures.card_height;
    const insets &in = measures.card_field;
    canvas card(measures.card_width, measures.card_height);
    rounded_rect(card, 0, 0, w, h, CARD_RADIUS);
    fill(card, c.outline);
    rounded_rect(card, 1, 1, w - 2, h - 2, CARD_RADIUS - 1);
    cairo_save(card);
    cairo_clip_preserve(card);
    fill(card, c.accent);
    for (double x = -h; x < w; x += STRIPE_PITCH) {
        cairo_move_to(card, x, 0);
        cairo_line_to(card, x + h, h);
    }
    stroke(card, lighten(c.accent, 0.09), STRIPE_WIDTH);
    cairo_restore(card);
    const double field_w = w - in.left - in.right, field_h = h - in.top - in.bottom;
    rounded_rect(card, in.left - 1, in.top - 1, field_w + 2, field_h + 2, FIELD_RADIUS + 1);
    fill(card, c.outline);
    rounded_rect(card, in.left, in.top, field_w, field_h, FIELD_RADIUS);
    fill(card, CREAM);
    return card;
}

// The empty place of the deck: a shallow tray with the outline of the card that lay there, ticked off.
canvas draw_deck_over(const puzzle_measures &measures, const puzzle_colours &c) {
    constexpr double DEPTH = 3, DASH[] = {4, 3}, DASH_INSET = 5.5, DASH_LINE = 1.4, TICK_LINE = 0.16;
    const double w = measures.card_width, h = measures.card_height, tick = std::round(h * 0.55);
    canvas place(measures.card_width, measures.card_height);
    rounded_rect(place, 0, 0, w, h, CARD_RADIUS);
    fill(place, c.outline);
    rounded_rect(place, 1, 1, w - 2, h - 2, CARD_RADIUS - 1);
    cairo_save(place);
    cairo_clip_preserve(place);
    fill(place, c.panel);
    for (double depth = 0; depth < DEPTH; ++depth) { // the shade of its upper left walls
        rounded_rect(place, 1, 1, w + DEPTH, h + DEPTH, CARD_RADIUS - 1);
        stroke(place, c.joints.dent, 2 * (DEPTH - depth), 0.45);
    }
    cairo_restore(place);
    rounded_rect(place, DASH_INSET, DASH_INSET, w - 2 * DASH_INSET, h - 2 * DASH_INSET, FIELD_RADIUS);
    cairo_set_dash(place, DASH, std::size(DASH), 0);
    stroke(place, c.joints.line, DASH_LINE);
    cairo_set_dash(place, nullptr, 0, 0);
    const double x = std::round((w - tick) / 2), y = std::round((h - tick) / 2);
    draw_icon(place, icon::tick, x + 1, y + 1, tick, lighten(c.panel, -TICK_LINE));
    draw_icon(place, icon::tick, x, y, tick, c.name);
    return place;
}

// --- Next button and keys ------------------------------------------------------------------------

constexpr button_style NEXT = {.width = 52, .height = 37};
constexpr double NEXT_MIDDLE = 17; // of its face, pixels
constexpr int KEY_WIDTH = 40, KEY_HEIGHT = 36;

void make_keys(int type, const puzzle_colours &c) {
    int k = 0;
    for (const button_look look : BUTTON_LOOKS) {
        canvas key(KEY_WIDTH, KEY_HEIGHT);
        draw_plate(key, KEY_SKIN, look, 0, 0, KEY_WIDTH, KEY_HEIGHT);
        save(key, entry_of_puzzle(type, PICTURE_KEYS, k++), {.dither = true});
    }
    for (const button_look look : BUTTON_LOOKS) {
        canvas next = draw_button(NEXT, look, icon::none, "");
        draw_next_mark(next, NEXT.width / 2.0, NEXT_MIDDLE, c.accent);
        save(next, entry_of_puzzle(type, PICTURE_KEYS, k++), {.dither = true});
    }
}

} // namespace

void make_deck(int type) {
    const puzzle_measures &measures = measures_of(type);
    const puzzle_colours c = colours_of(type);
    const canvas card = draw_card(measures, c);
    save(card, entry_of_puzzle(type, PICTURE_CARD));
    save(card, entry_of_puzzle(type, PICTURE_NEXT));
    save(draw_deck_over(measures, c), entry_of_puzzle(type, PICTURE_EMPTY_DECK));
    make_keys(type, c);
}

// --- Keypad --------------------------------------------------------------------------------------

namespace {

constexpr int PAD_WIDTH = 128, PAD_HEIGHT = 160;
constexpr double PAD_RADIUS = 10;
constexpr int KEY_LABEL_WIDTH = 30, KEY_LABEL_HEIGHT = 28;
constexpr double KEY_LABEL_X = KEY_LABEL_WIDTH / 2.0, KEY_LABEL_Y = 12; // middle of a key's face
constexpr double KEY_CAP = 18, ENTERED_CAP = 18, CARD_CAP = 14;
constexpr int ENTERED_WIDTH = 20, ENTERED_HEIGHT = 28;
constexpr rgb ENTERED_OUTLINE = hex(0x5A4320), ENTERED_FACE = hex(0xFFFDF4), ENTERED_SHADE = hex(0xE3D4AE);
constexpr rgb DELETE_RED = hex(0xA83A2A), ENTER_GREEN = hex(0x2F7D3B);
constexpr double SIGN_LINE = -0.16, SIGN_LIGHT = 0.12; // lightness against their face
constexpr int DIGITS = 10, DELETE_KEY = 10, ENTER_KEY = 11;

canvas draw_pad() {
    canvas pad(PAD_WIDTH, PAD_HEIGHT);
    const double w = PAD_WIDTH, h = PAD_HEIGHT;
    rounded_rect(pad, 0, 0, w, h, PAD_RADIUS);
    fill(pad, WOOD_OUTLINE);
    rounded_rect(pad, 1, 1, w - 2, h - 2, PAD_RADIUS - 1);
    fill(pad, WOOD_SHADE);
    rounded_rect(pad, 1, 1, w - 3, h - 3, PAD_RADIUS - 1);
    fill(pad, WOOD_LIGHT);
    rounded_rect(pad, 2, 2, w - 4, h - 4, PAD_RADIUS - 2);
    fill(pad, WOOD);
    return pad;
}

void draw_delete(cairo_t *cr) {
    constexpr double LEFT = 2, TIP = 9, RIGHT = 28.5, HALF = 8.5;
    cairo_move_to(cr, LEFT, KEY_LABEL_Y);
    cairo_line_to(cr, TIP, KEY_LABEL_Y - HALF);
    cairo_line_to(cr, RIGHT, KEY_LABEL_Y - HALF);
    cairo_line_to(cr, RIGHT, KEY_LABEL_Y + HALF);
    cairo_line_to(cr, TIP, KEY_LABEL_Y + HALF);
    cairo_close_path(cr);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_path_t *plate = cairo_copy_path(cr);
    stroke(cr, lighten(DELETE_RED, SIGN_LINE), 3);
    cairo_append_path(cr, plate);
    fill_keep(cr, DELETE_RED);
    stroke(cr, DELETE_RED, 1);
    cairo_path_destroy(plate);
    cairo_rectangle(cr, TIP, KEY_LABEL_Y - HALF - 0.5, RIGHT - TIP, 1);
    fill(cr, lighten(DELETE_RED, SIGN_LIGHT));
    draw_icon(cr, icon::cross, 11, KEY_LABEL_Y - 7.5, 15, WHITE);
}

void draw_enter(cairo_t *cr) {
    constexpr double TOP = KEY_LABEL_Y - 11, HEIGHT = 22, RADIUS = 5;
    rounded_rect(cr, 0, TOP, KEY_LABEL_WIDTH, HEIGHT, RADIUS);
    fill(cr, lighten(ENTER_GREEN, SIGN_LINE));
    rounded_rect(cr, 1, TOP + 1, KEY_LABEL_WIDTH - 2, HEIGHT - 2, RADIUS - 1);
    fill(cr, lighten(ENTER_GREEN, SIGN_LIGHT));
    rounded_rect(cr, 1, TOP + 2, KEY_LABEL_WIDTH - 2, HEIGHT - 3, RADIUS - 1);
    fill(cr, ENTER_GREEN);
    draw_icon(cr, icon::tick, KEY_LABEL_X - 9, KEY_LABEL_Y - 9, 18, WHITE);
}

canvas draw_key_label(int value) {
    canvas label(KEY_LABEL_WIDTH, KEY_LABEL_HEIGHT);
    if (value == DELETE_KEY)
        draw_delete(label);
    else if (value == ENTER_KEY)
        draw_enter(label);
    else
        print(label, KEY_CAP, KEY_LABEL_X, KEY_LABEL_Y, std::to_string(value), PRINT);
    return label;
}

canvas draw_entered_digit(int digit) {
    canvas tile(ENTERED_WIDTH, ENTERED_HEIGHT);
    const double w = ENTERED_WIDTH, h = ENTERED_HEIGHT;
    rounded_rect(tile, 0, 0, w, h, 4);
    fill(tile, ENTERED_OUTLINE);
    rounded_rect(tile, 1, 1, w - 2, h - 2, 3);
    fill(tile, ENTERED_SHADE);
    rounded_rect(tile, 1, 1, w - 2, h - 3.5, 3);
    fill(tile, ENTERED_FACE);
    print(tile, ENTERED_CAP, w / 2, h / 2 - 1, std::to_string(digit), PRINT);
    return tile;
}

// A sign of the card's problem, as wide as its ink: the game sets the pictures side by side, one pixel
// apart, on one bottom line.
canvas draw_card_sign(std::string_view sign, rgb colour) {
    canvas measure(1, 1);
    double left = 0, top = 0, right = 0, bottom = 0;
    text_path(measure, face::dosis_bold, CARD_CAP, 0, 0, align::left, sign);
    cairo_path_extents(measure, &left, &top, &right, &bottom);
    canvas picture(static_cast<int>(std::ceil(right - left)), static_cast<int>(CARD_CAP));
    const double x = (picture.width - (right - left)) / 2 - left;
    text(picture, face::dosis_bold, CARD_CAP, x, CARD_CAP, align::left, sign, colour);
    return picture;
}

// The sign between two factors is drawn: the font's is small.
canvas draw_times(rgb colour) {
    constexpr double SIZE = 9, MIDDLE = CARD_CAP / 2 + 0.5, REACH = 3, LINE = 2.2;
    canvas picture(static_cast<int>(SIZE), static_cast<int>(CARD_CAP));
    cairo_set_line_cap(picture, CAIRO_LINE_CAP_ROUND);
    for (const double way : {-1.0, 1.0}) {
        cairo_move_to(picture, SIZE / 2 - REACH, MIDDLE - way * REACH);
        cairo_line_to(picture, SIZE / 2 + REACH, MIDDLE + way * REACH);
    }
    stroke(picture, colour, LINE);
    return picture;
}

} // namespace

void make_keypad(int type) {
    save(draw_pad(), entry_of_puzzle(type, PICTURE_KEYPAD));
    for (int value = 0; value <= ENTER_KEY; ++value)
        save(draw_key_label(value), entry_of_puzzle(type, PICTURE_KEY_SYMBOLS, value), on_ground(KEY_SKIN.middle));
    for (int digit = 0; digit < DIGITS; ++digit) {
        save(draw_entered_digit(digit), entry_of_puzzle(type, PICTURE_ENTERED_DIGITS, digit));
        save(draw_card_sign(std::to_string(digit), PRINT), entry_of_puzzle(type, PICTURE_CARD_SYMBOLS, digit),
             on_ground(CREAM));
    }
    lch sign = to_lch(colours_of(type).accent);
    sign.l = 0.42;
    save(draw_times(to_rgb(sign)), entry_of_puzzle(type, PICTURE_CARD_SYMBOLS, DIGITS), on_ground(CREAM));
}

} // namespace art
