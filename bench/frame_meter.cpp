// frame_meter.cpp: the steps of a frame, by the names that the compiler gives them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "frame_meter.h"

#include "frame_rival.h"
#include "graphics/draw_queue.h"
#include "graphics/locks.h"
#include "graphics/render.h"
#include "support/fake_sdl.h"
#include "timing.h"

#include <SDL_thread.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <utility>

namespace {

std::vector<frame_cost> measured;
std::atomic<bool> measuring = false, beside_sdl = false;
frame_cost frame = {}, last_frame = {};

// Adds what a step takes and allocates to the frame.
void meter(double *seconds, const std::function<void()> &step) {
    const int before = fake_allocations();
    *seconds += seconds_of(step);
    frame.allocations += fake_allocations() - before;
}

// What the render thread would take now.
std::vector<u8> recorded_list() {
    const draw_block &list = draw_queue.lists[draw_queue.recording];
    return draw_queue.pending ? std::vector<u8>(list.bytes, list.bytes + list.length) : std::vector<u8>();
}

void play_frame(std::span<const u8> list) {
    frame.bytes = list_bytes(list);
    frame.pictures = list_pictures(list);
    meter(&frame.playing, render_pass);
}

void draw_with_sdl(std::span<const u8> list) {
    rival_prepare(list);
    frame.same_blits = seconds_of([&] { rival_draw(list); });
    frame.whole_blits = seconds_of([&] {
        rival_draw_screen();
        rival_draw(list);
    });
}

} // namespace

void frame_meter_begin(bool with_sdl) {
    beside_sdl = with_sdl;
    measured.clear();
    measuring = true;
}

std::vector<frame_cost> frame_meter_end() {
    measuring = false;
    return std::move(measured);
}

frame_cost frame_meter_last() {
    return last_frame;
}

extern "C" {
void __real__Z11screen_tickv();
void __real__Z13screen_updatev();
void __real__Z11screen_drawv();
void __real__Z16screen_end_framev();

void __wrap__Z11screen_tickv() {
    frame = {};
    meter(&frame.recording, __real__Z11screen_tickv);
}
void __wrap__Z13screen_updatev() {
    meter(&frame.recording, __real__Z13screen_updatev);
}
void __wrap__Z11screen_drawv() {
    meter(&frame.recording, __real__Z11screen_drawv);
}
void __wrap__Z16screen_end_framev() {
    meter(&frame.recording, __real__Z16screen_end_framev);
    const std::vector<u8> list = recorded_list();
    play_frame(list);
    last_frame = frame;
    if (!measuring)
        return;
    if (beside_sdl)
        draw_with_sdl(list);
    measured.push_back(frame);
}

// Without a render thread whoever waits for it plays what it waits for.
void __wrap__Z12render_pausei(i32 n) {
    for (i32 i = 0; i < n; ++i)
        render_pass();
}

SDL_Thread *__wrap_SDL_CreateThread(int (*)(void *), void *) {
    static int stand_in;
    render_running = false;
    render_pass();
    return reinterpret_cast<SDL_Thread *>(&stand_in);
}
void __wrap_SDL_WaitThread(SDL_Thread *, int *) {}
}
