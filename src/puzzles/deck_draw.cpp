// deck_draw.cpp: records the cards and their faces.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "puzzles/deck_draw.h"

#include "graphics/draw_list.h"
#include "sprites/sprite.h"

#include <algorithm>

namespace {

constexpr rgb LOOSE_PIECE_GLOW = {255, 150, 150}; // of the top card while its piece lies on the board
constexpr i32 SYMBOL_GAP = 1;                     // pixels between two characters of a card text
constexpr i32 SLIDING_OUT_PHASES = 2;             // in the first phases the turned card lies above the stack

// The picture that stands for a character; null for none.
const image *card_symbol(const board *b, char character) {
    const auto index = CARD_TEXT_CHARACTERS.find(character);
    return index != std::string_view::npos ? b->pictures.card_symbols[index] : nullptr;
}

void draw_card_label(const board *b, i32 x, i32 y, const image *label) {
    if (label == nullptr)
        return;
    const i32 left = centre_in(x, b->pictures.card->width, label->width) + b->places->card_label.x;
    const i32 top = centre_in(y, b->pictures.card->height, label->height) + b->places->card_label.y;
    draw_image(label, left, top, true);
}

void draw_card(const board *b, i32 x, i32 y, const sprite *face) {
    draw_image(b->pictures.card, x, y, true);
    if (face == nullptr)
        return;
    if (board_has(b, BOARD_CARD_TEXT))
        board_draw_card_text(b, x, y, face->label_text);
    else
        draw_card_label(b, x, y, face->label);
}

void draw_leaving_card(const board *b) {
    if (b->deck.leaving != nullptr)
        draw_card(b, b->deck.leaving_at.x, b->deck.leaving_at.y,
                  board_is(b, BOARD_DECK_OPENING) ? nullptr : b->deck.leaving);
}

void draw_stack(const board *b) {
    const bool closed = board_is(b, BOARD_DECK_CLOSED);
    const bool faces = !closed && !board_is(b, BOARD_DECK_LOCK);
    for (i32 i = std::min(b->remaining, DECK_CARDS - 1); i >= 0; --i)
        if (closed || b->deck.slot[i] != nullptr)
            draw_card(b, b->deck.slot_at[i].x, b->deck.slot_at[i].y, faces ? b->deck.slot[i] : nullptr);
}

} // namespace

void deck_draw(const board *b) {
    if (b->remaining <= 0) {
        draw_image(b->pictures.empty_deck, b->places->deck.x, b->places->deck.y, true);
        return;
    }
    const bool moving = board_is(b, BOARD_DECK_MOVING);
    const bool above = b->deck.phase < SLIDING_OUT_PHASES;
    if (moving && !above)
        draw_leaving_card(b);
    draw_stack(b);
    if (moving && above)
        draw_leaving_card(b);
    if (b->deck.slot[0] != nullptr && (b->deck.slot[0]->flags & SPRITE_INERT) == 0)
        draw_image_ex(b->pictures.card, b->deck.slot_at[0].x, b->deck.slot_at[0].y, BLIT_TINT | BLIT_NO_DIRTY,
                      LOOSE_PIECE_GLOW);
}

void board_draw_card_text(const board *b, i32 x, i32 y, const char *text) {
    if (text == nullptr)
        return;
    i32 width = 0, height = 0;
    for (const char *c = text; *c != '\0'; ++c) {
        if (const image *symbol = card_symbol(b, *c)) {
            width += symbol->width + SYMBOL_GAP;
            height = std::max(height, symbol->height);
        }
    }
    i32 left = centre_in(x, b->pictures.card->width, width);
    const i32 bottom = centre_in(y, b->pictures.card->height, height) + height;
    for (const char *c = text; *c != '\0'; ++c) {
        if (const image *symbol = card_symbol(b, *c)) {
            draw_image(symbol, left, bottom - symbol->height, false);
            left += symbol->width + SYMBOL_GAP;
        }
    }
}
