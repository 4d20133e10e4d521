// frame_meter.cpp: a frame of the main loop, from sleep to sleep, without what the script does in it.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "frame_meter.h"

#include "frame_rival.h"
#include "graphics/draw_queue.h"
#include "graphics/render.h"
#include "timing.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace {

std::vector<frame_cost> measured;
std::atomic<bool> measuring = false, beside_sdl = false;
frame_cost frame = {}, last_frame = {};

// Where what is not measured ended.
struct {
    double seconds;
    int allocations;
} mark;

void go_on() {
    mark = {cpu_seconds(), fake_allocations()};
}

// Adds to the frame what it took and allocated since.
void pause(double *seconds) {
    *seconds += cpu_seconds() - mark.seconds;
    frame.allocations += fake_allocations() - mark.allocations;
}

// What the render thread would take now.
std::vector<u8> recorded_list() {
    const draw_block &list = draw_queue.lists[draw_queue.recording];
    return draw_queue.pending ? std::vector<u8>(list.bytes, list.bytes + list.length) : std::vector<u8>();
}

void play_frame(std::span<const u8> list) {
    frame.bytes = list_bytes(list);
    frame.pictures = list_pictures(list);
    go_on();
    render_pass();
    pause(&frame.playing);
}

void draw_with_sdl(std::span<const u8> list) {
    rival_prepare(list);
    last_frame.same_blits = seconds_of([&] { rival_draw(list); });
    last_frame.whole_blits = seconds_of([&] {
        rival_draw_screen();
        rival_draw(list);
    });
}

void end_frame() {
    const std::vector<u8> list = recorded_list();
    play_frame(list);
    last_frame = std::exchange(frame, {});
    if (!measuring)
        return;
    if (beside_sdl)
        draw_with_sdl(list);
    measured.push_back(last_frame);
}

void poll() {
    pause(&frame.recording);
    take_turns();
    go_on();
}

// The main loop waits for what is played meanwhile, or it sleeps: then its frame has ended.
bool turn(bool needed) {
    if (needed)
        return true;
    pause(&frame.recording);
    end_frame();
    go_on();
    return false;
}

} // namespace

const harness_calls METERED = {.frame = poll, .render_turn = turn};

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
