// frame_rival.cpp: SDL's counterparts of the commands that frames are made of.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "frame_rival.h"

#include "graphics/draw_ops.h"
#include "graphics/frame_buffers.h"
#include "graphics/glyphs.h"
#include "resources/pixel.h"

#include <SDL.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

namespace {

constexpr Uint8 HALF_ALPHA = 128;

// Each picture as SDL draws it fastest: run-length encoded with the colour key, at full strength and at half.
struct surfaces {
    SDL_Surface *full, *half;
};
std::map<const image *, surfaces> pictures;
u32 pictures_of = 0; // image_changes() when they were made
SDL_Surface *screen = nullptr, *background = nullptr, *black = nullptr;
SDL_Surface *saved[SAVE_SLOTS] = {};

SDL_Surface *create(i32 width, i32 height) {
    const SDL_PixelFormat &f = *frames.surface->format;
    return SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, f.BitsPerPixel, f.Rmask, f.Gmask, f.Bmask, 0);
}

SDL_Surface *surface_of(const image &picture, bool half) {
    SDL_Surface *made = create(picture.width, picture.height);
    const std::size_t row = static_cast<std::size_t>(picture.width) << video_format.shift;
    for (i32 y = 0; y < picture.height; ++y)
        std::memcpy(static_cast<u8 *>(made->pixels) + y * made->pitch,
                    picture.pixels + static_cast<std::size_t>(y) * row, row);
    const rgb key = colour_key;
    SDL_SetColorKey(made, SDL_SRCCOLORKEY | SDL_RLEACCEL, SDL_MapRGB(made->format, key.r, key.g, key.b));
    if (half)
        SDL_SetAlpha(made, SDL_SRCALPHA | SDL_RLEACCEL, HALF_ALPHA);
    return made;
}

SDL_Rect to_sdl(const rect &r) {
    const rect cut = rect_cut(r, SCREEN_WIDTH, SCREEN_HEIGHT);
    return {static_cast<Sint16>(cut.x), static_cast<Sint16>(cut.y), static_cast<Uint16>(std::max(cut.w, 0)),
            static_cast<Uint16>(std::max(cut.h, 0))};
}

u32 colour_of(rgb c) {
    return SDL_MapRGB(screen->format, c.r, c.g, c.b);
}

void draw_picture(const image *picture, i32 x, i32 y, SDL_Surface *to, bool half) {
    const surfaces &of = pictures.at(picture);
    SDL_Rect at = {static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
    SDL_BlitSurface(half ? of.half : of.full, nullptr, to, &at);
}

void draw_clipped(const image_clipped_operands &op, SDL_Surface *to) {
    const SDL_Rect clip = to_sdl(op.clip);
    SDL_SetClipRect(to, &clip);
    draw_picture(op.picture, op.x, op.y, to, false);
    SDL_SetClipRect(to, nullptr);
}

void fill(SDL_Surface *to, const rect &area, rgb colour) {
    SDL_Rect where = to_sdl(area);
    SDL_FillRect(to, &where, colour_of(colour));
}

void copy(SDL_Surface *from, SDL_Surface *to, const rect &area) {
    SDL_Rect part = to_sdl(area), where = part;
    SDL_BlitSurface(from, &part, to, &where);
}

// --- One a command -------------------------------------------------------------------------------

void draw(draw_opcode id, const image_operands &op) {
    draw_picture(op.picture, op.x, op.y, id == DRAW_IMAGE ? screen : background, false);
}
void draw(draw_opcode, const image_ex_operands &op) {
    const bool half = (op.mode & (BLIT_HALF | BLIT_TINT | BLIT_OR)) != 0;
    draw_picture(op.picture, op.x, op.y, (op.mode & BLIT_TO_BG) != 0 ? background : screen, half);
}
void draw(draw_opcode id, const image_clipped_operands &op) {
    draw_clipped(op, id == DRAW_IMAGE_CLIPPED ? screen : background);
}
void draw(draw_opcode id, const area_operands &op) {
    if (id == DRAW_RESTORE)
        copy(background, screen, op.area);
    else if (id == DRAW_STORE_BG)
        copy(screen, background, op.area);
    else if (id != DRAW_DIRTY)
        copy(black, id == DRAW_DARKEN ? screen : background, op.area);
}
void draw(draw_opcode id, const fill_operands &op) {
    const auto [x, y, w, h] = op.area;
    if (id != DRAW_FRAME)
        return fill(id == DRAW_FILL ? screen : background, op.area, op.colour);
    for (const rect &side : {rect{x, y, w, 1}, {x, y, 1, h}, {x + w - 1, y, 1, h}, {x, y + h - 1, w, 1}})
        fill(screen, side, op.colour);
}
void draw(draw_opcode, const pixel_operands &op) {
    fill(screen, {op.x, op.y, 1, 1}, op.colour);
}
void draw(draw_opcode id, const slot_operands &op) {
    static rect areas[SAVE_SLOTS];
    if (id == DRAW_SAVE)
        areas[op.slot] = op.area;
    SDL_Surface *from = id == DRAW_SAVE ? screen : saved[op.slot], *to = id == DRAW_SAVE ? saved[op.slot] : screen;
    copy(from, to, areas[op.slot]);
}
void draw(draw_opcode, const text_operands &op) {
    if (const image *glyph = glyphs[op.slot].working; glyph != nullptr)
        draw_picture(glyph, op.x, op.y, op.to_background != 0 ? background : screen, false);
}
void draw(draw_opcode, const line_operands &) {}
void draw(draw_opcode, const noise_operands &) {}
void draw(draw_opcode, const no_operands &) {}
void draw(draw_opcode, const free_image_operands &) {}

// --- What a command needs and writes -------------------------------------------------------------

template <class Operands> const image *picture_in(const Operands &op) {
    if constexpr (requires { op.picture; })
        return op.picture;
    else if constexpr (std::is_same_v<Operands, text_operands>)
        return glyphs[op.slot].working;
    else
        return nullptr;
}

i64 area_pixels(const rect &area) {
    const rect cut = rect_cut(area, SCREEN_WIDTH, SCREEN_HEIGHT);
    return rect_is_empty(cut) ? 0 : i64{cut.w} * cut.h;
}

// Opaque pixels inside a box.
i64 picture_pixels(const image &picture, i32 x, i32 y, const rect &box) {
    i64 pixels = 0;
    for (i32 i = 0; i < picture.run_count; ++i) {
        const image_run &run = picture.runs[i];
        const i32 shown = std::min(x + run.x + run.count, box.x + box.w) - std::max(x + run.x, box.x);
        if (y + run.y >= box.y && y + run.y < box.y + box.h)
            pixels += std::max(shown, 0);
    }
    return pixels;
}

i64 pixels_of(draw_opcode, const image_clipped_operands &op) {
    return picture_pixels(*op.picture, op.x, op.y, rect_cut(op.clip, SCREEN_WIDTH, SCREEN_HEIGHT));
}
i64 pixels_of(draw_opcode id, const slot_operands &op) {
    return id == DRAW_SAVE ? 2 * area_pixels(op.area) : 0; // and back
}
i64 pixels_of(draw_opcode, const no_operands &) {
    return area_pixels(WHOLE_SCREEN);
}
template <class Operands> i64 pixels_of(draw_opcode id, const Operands &op) {
    if constexpr (requires { op.area; }) {
        return id == DRAW_DIRTY || id == DRAW_FRAME ? 0 : area_pixels(op.area);
    } else if constexpr (requires { op.x; }) {
        const image *picture = picture_in(op);
        return picture != nullptr ? picture_pixels(*picture, op.x, op.y, WHOLE_SCREEN) : 0;
    }
    return 0;
}

// Calls each(id, operands) for the commands of a list.
template <class Each> void walk(std::span<const u8> list, Each each) {
    while (!list.empty()) {
        const u8 *at = list.data() + 1;
        switch (list[0]) {
#define WALK_CASE(id, operands, player, reach)                                                                         \
    case id: {                                                                                                         \
        operands op{};                                                                                                 \
        std::memcpy(&op, at, static_cast<std::size_t>(operands_size<operands>()));                                     \
        each(id, op);                                                                                                  \
        break;                                                                                                         \
    }
            DRAW_MANIFEST(WALK_CASE)
#undef WALK_CASE
        }
        list = list.subspan(static_cast<std::size_t>(DRAW_COMMANDS[list[0]].size) + 1);
    }
}

void create_screens() {
    for (SDL_Surface **surface : {&screen, &background, &black, &saved[0], &saved[1]})
        *surface = create(SCREEN_WIDTH, SCREEN_HEIGHT);
    SDL_SetAlpha(black, SDL_SRCALPHA, HALF_ALPHA);
}

} // namespace

void rival_prepare(std::span<const u8> list) {
    if (screen == nullptr)
        create_screens();
    if (pictures_of != image_changes()) { // pointers may mean other pictures now
        for (const auto &[picture, of] : pictures) {
            SDL_FreeSurface(of.full);
            SDL_FreeSurface(of.half);
        }
        pictures.clear();
        pictures_of = image_changes();
    }
    walk(list, [](draw_opcode id, const auto &op) {
        const image *picture = picture_in(op);
        if (picture == nullptr || id == DRAW_FREE_IMAGE || pictures.contains(picture))
            return;
        pictures[picture] = {surface_of(*picture, false), surface_of(*picture, true)};
        SDL_BlitSurface(pictures[picture].full, nullptr, black, nullptr); // SDL encodes at the first blit
        SDL_BlitSurface(pictures[picture].half, nullptr, black, nullptr);
    });
}

void rival_draw(std::span<const u8> list) {
    walk(list, [](draw_opcode id, const auto &op) { draw(id, op); });
}

void rival_draw_screen() {
    copy(background, screen, WHOLE_SCREEN);
}

i64 list_bytes(std::span<const u8> list) {
    i64 pixels = 0;
    walk(list, [&](draw_opcode id, const auto &op) { pixels += pixels_of(id, op); });
    return pixels << video_format.shift;
}

i32 list_pictures(std::span<const u8> list) {
    i32 pictures = 0;
    walk(list, [&](draw_opcode, const auto &op) { pictures += picture_in(op) != nullptr ? 1 : 0; });
    return pictures;
}
