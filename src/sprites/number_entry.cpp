// number_entry.cpp: the keypad's answer display, a row of flying digits.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sprites/number_entry.h"

#include "core/base/log.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>

namespace {

constexpr i32 FLIGHT_FRAMES = 10;
constexpr i32 DIGIT_GAP = 2; // pixels
constexpr i32 DECIMAL = 10;

std::span<glyph_mover> movers_of(const number_entry *e) {
    return {e->movers, static_cast<std::size_t>(e->capacity)};
}

bool takes_input(const number_entry *e) {
    return (e->flags & (ENTRY_ENTERED | ENTRY_CLOSED)) == 0;
}

// An empty slot counts as arrived: nobody waits for it.
void empty_slot(glyph_mover *m) {
    *m = {};
    m->flags = GLYPH_ARRIVED;
}

} // namespace

number_entry *number_entry_create(i32 capacity) {
    const auto digits = static_cast<std::size_t>(capacity);
    auto *e = static_cast<number_entry *>(std::calloc(1, sizeof(number_entry)));
    if (e != nullptr) {
        e->capacity = capacity;
        e->text = static_cast<char *>(std::calloc(digits + 1, 1));
        e->movers = static_cast<glyph_mover *>(std::calloc(digits, sizeof(glyph_mover)));
    }
    if (e == nullptr || e->text == nullptr || e->movers == nullptr) {
        log_out_of_memory();
        number_entry_free(e);
        return nullptr;
    }
    number_entry_clear(e);
    return e;
}

void number_entry_free(number_entry *e) {
    if (e == nullptr)
        return;
    std::free(e->text);
    std::free(e->movers);
    std::free(e);
}

void number_entry_clear(number_entry *e) {
    std::memset(e->text, 0, static_cast<std::size_t>(e->capacity) + 1);
    for (glyph_mover &m : movers_of(e))
        empty_slot(&m);
    e->flags = 0;
}

i32 number_entry_length(const number_entry *e) {
    return static_cast<i32>(std::strlen(e->text));
}

i32 number_entry_value(const number_entry *e) {
    return static_cast<i32>(std::strtol(e->text, nullptr, DECIMAL));
}

// --- Typing --------------------------------------------------------------------------------------

namespace {

i32 typed_width(const number_entry *e) {
    i32 width = 0;
    for (const char *c = e->text; *c != '\0'; ++c)
        width += e->digits[*c - '0']->width + DIGIT_GAP;
    return width;
}

} // namespace

void number_entry_add_digit(number_entry *e, const rect &key, i32 digit) {
    const i32 length = number_entry_length(e);
    const bool is_digit = digit >= 0 && digit < ENTRY_DIGIT_COUNT;
    if (!takes_input(e) || length == e->capacity || !is_digit || (length == 0 && digit == 0))
        return;
    const image *picture = e->digits[digit];
    const i32 from_x = centre_in(key.x, key.w, picture->width);
    const i32 from_y = centre_in(key.y, key.h, picture->height);
    glyph_mover_start(&e->movers[length], picture, {from_x, from_y}, {e->x + typed_width(e), e->y}, FLIGHT_FRAMES);
    e->text[length] = static_cast<char>('0' + digit);
}

void number_entry_backspace(number_entry *e) {
    const i32 length = number_entry_length(e);
    if ((e->flags & ENTRY_CLOSED) != 0 || length == 0)
        return;
    e->text[length - 1] = '\0';
    empty_slot(&e->movers[length - 1]);
}

// --- Entering and scattering ---------------------------------------------------------------------

void number_entry_submit(number_entry *e, i32 expected) {
    if (!takes_input(e))
        return;
    if (number_entry_value(e) == expected)
        e->flags |= ENTRY_CORRECT;
    i32 offset = 0;
    for (glyph_mover &m : movers_of(e)) {
        glyph_mover_finish(&m);
        if (m.glyph == nullptr)
            continue;
        glyph_mover_send(&m, {e->dest_x + offset, e->dest_y}, FLIGHT_FRAMES);
        offset += m.glyph->width + DIGIT_GAP;
    }
    e->flags |= ENTRY_ENTERED;
}

void number_entry_scatter(number_entry *e) {
    if ((e->flags & ENTRY_SCATTERING) != 0)
        return;
    e->flags |= ENTRY_SCATTERING;
    const auto coin = [] { return std::rand() % 2 == 1; };
    for (glyph_mover &m : movers_of(e)) {
        if (m.glyph == nullptr)
            continue;
        i32 x = 0, y = 0;
        if (coin()) {
            x = std::rand() % SCREEN_WIDTH;
            y = coin() ? 0 : SCREEN_HEIGHT;
        } else {
            x = coin() ? 0 : SCREEN_WIDTH;
            y = std::rand() % SCREEN_HEIGHT;
        }
        glyph_mover_send(&m, {x, y}, FLIGHT_FRAMES);
    }
}

// --- Each frame ----------------------------------------------------------------------------------

void number_entry_update(number_entry *e) {
    const std::span<glyph_mover> movers = movers_of(e);
    for (glyph_mover &m : movers)
        glyph_mover_step(&m);
    const bool all_arrived = std::ranges::all_of(movers, [](const glyph_mover &m) { return glyph_mover_arrived(&m); });
    if (!all_arrived)
        return;
    if ((e->flags & (ENTRY_ENTERED | ENTRY_ARRIVED)) == ENTRY_ENTERED)
        e->flags |= ENTRY_ARRIVED;
    else if ((e->flags & ENTRY_SCATTERING) != 0)
        number_entry_clear(e);
}

void number_entry_draw(const number_entry *e) {
    for (const glyph_mover &m : movers_of(e))
        glyph_mover_draw(&m);
}
