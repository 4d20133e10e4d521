// blit_bench.cpp: the picture routines beside SDL's blits with a colour key and a plain copy of as many bytes.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "benches.h"

#include "graphics/blit.h"
#include "pairs.h"
#include "pictures.h"
#include "resources/pixel.h"

#include <cstring>
#include <memory>

namespace {

constexpr double NEARLY_AS_FAST = 1 / 1.25; // of SDL, for no picture's copy more than 1.25 times as long
constexpr rgb TINT = {200, 40, 40};
constexpr i32 HALF_ALPHA = 128;

struct place {
    i32 x, y;
};

struct subject {
    const char *name;
    const char *entry;
    bool is_label = false;
} SUBJECTS[] = {
    {"piece", "puzzle/factor/piece/base.xpm"},
    {"label", "puzzle/factor/piece/symbols/001.xpm", true},
    {"button", "title/011.xpm"},
    {"board", "puzzle/factor/board/base.xpm"},
    {"whole screen", "bg/001.xpm"},
};

// What both sides draw in one benchmark, made when it starts, because the depth is set then. Made again, it lies at
// other places: of a small picture these alone change the ratio by a third.
struct stage {
    i32 depth;
    const char *entry;
    bool crossing; // each edge of the screen in turn
    std::vector<place> places;
    image *picture;
    SDL_Surface *plain, *fast, *alpha;
    frame_buffer screen;
    std::vector<u8> from, to; // for copying
    std::vector<std::size_t> bytes;

    void set_up();
    void draw_sdl(SDL_Surface *source) const {
        for (const place &at : places) {
            SDL_Rect where = {static_cast<Sint16>(at.x), static_cast<Sint16>(at.y), 0, 0};
            SDL_BlitSurface(source, nullptr, sdl_screen(), &where);
        }
    }
    void copy() {
        for (const std::size_t count : bytes)
            std::memcpy(to.data(), from.data(), count);
    }
};

void stage::set_up() {
    image_free(picture);
    for (SDL_Surface *old : {plain, fast, alpha})
        SDL_FreeSurface(old);
    move_on_the_heap();
    use_depth(depth);
    picture = picture_of(entry);
    const i32 w = picture->width, h = picture->height;
    const i32 x = (SCREEN_WIDTH - w) / 2, y = (SCREEN_HEIGHT - h) / 2;
    if (crossing)
        places = {{-w / 2, y}, {SCREEN_WIDTH - w / 2, y}, {x, -h / 2}, {x, SCREEN_HEIGHT - h / 2}};
    else
        places = {{x, y}};
    plain = sdl_picture(picture, 0);
    fast = sdl_picture(picture, SDL_RLEACCEL);
    alpha = sdl_picture(picture, 0);
    SDL_SetAlpha(alpha, SDL_SRCALPHA, HALF_ALPHA);
    screen = {static_cast<u8 *>(frames.surface->pixels), frames.surface->pitch, SCREEN_WIDTH, SCREEN_HEIGHT};
    from.assign(static_cast<std::size_t>(picture->size), 1);
    to.assign(from.size(), 0);
    bytes.clear();
    for (const place &at : places)
        bytes.push_back(static_cast<std::size_t>(visible_bytes(picture, at.x, at.y)));
}

void draw_mode(stage *on, u32 mode) {
    for (const place &at : on->places)
        blit->by_mode(on->screen, {on->picture, at.x, at.y, mode, TINT, BLACK, {}, {}});
}

void add_plain(const std::string &figure, const std::shared_ptr<stage> &on, bool clipped) {
    const way ours = [=] {
        for (const place &at : on->places)
            if (clipped)
                blit->clipped(on->screen, *on->picture, at.x, at.y, {100, 100, 600, 400});
            else
                blit->plain(on->screen, *on->picture, at.x, at.y);
    };
    const way clip = [=] {
        SDL_Rect area = {100, 100, 600, 400};
        SDL_SetClipRect(sdl_screen(), &area);
    };
    const rival sdl = {
        "faster SDL blit", {[=] { on->draw_sdl(on->plain); }, [=] { on->draw_sdl(on->fast); }}, NEARLY_AS_FAST};
    if (clipped)
        compare(
            figure + ", clipped", [=] { on->set_up(), clip(); }, ours, {sdl}, SHORT_MEASUREMENTS);
    else
        compare(
            figure, [=] { on->set_up(); }, ours, {sdl, {"memcpy", {[=] { on->copy(); }}, NO_AIM.limit}},
            SHORT_MEASUREMENTS);
}

void add_modes(const std::string &figure, const subject &what, const std::shared_ptr<stage> &on) {
    const struct {
        const char *name;
        u32 mode;
    } BLENDS[] = {{", tinted", BLIT_TINT}, {", half strength", BLIT_HALF}};
    const way set_up = [=] { on->set_up(); };
    for (const auto &row : BLENDS)
        compare(
            figure + row.name, set_up, [=] { draw_mode(on.get(), row.mode); },
            {{"SDL alpha blit", {[=] { on->draw_sdl(on->alpha); }}, NO_AIM.limit}}, SHORT_MEASUREMENTS);
    if (what.is_label) // of what else no silhouette is ever drawn
        compare(
            figure + ", silhouette", set_up, [=] { draw_mode(on.get(), BLIT_FILL); },
            {{"faster SDL blit", {[=] { on->draw_sdl(on->plain); }, [=] { on->draw_sdl(on->fast); }}, NEARLY_AS_FAST}},
            SHORT_MEASUREMENTS);
}

} // namespace

void add_blit_benches() {
    for (const i32 depth : DEPTHS)
        for (const subject &what : SUBJECTS)
            for (const bool crossing : {false, true}) {
                const std::string figure = std::string(what.name) + ", " + std::to_string(depth) + " bits" +
                                           (crossing ? ", across the edges" : "");
                const auto on =
                    std::make_shared<stage>(stage{depth, what.entry, crossing, {}, {}, {}, {}, {}, {}, {}, {}, {}});
                add_plain(figure, on, false);
                if (crossing)
                    continue;
                add_plain(figure, on, true);
                add_modes(figure, what, on);
            }
}
