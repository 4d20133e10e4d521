// fake_sdl.cpp: the stand-ins that the linker puts in the place of SDL's and the C library's functions.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/fake_sdl.h"

#include <SDL.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <random>
#include <thread>
#include <vector>

extern "C" {
Uint8 *__real_SDL_GetKeyState(int *count);
Uint8 __real_SDL_GetMouseState(int *x, int *y);
Uint32 __real_SDL_GetTicks();
void __real_SDL_Delay(Uint32 span);
int __real_rand();
void *__real_malloc(std::size_t size);
void *__real_calloc(std::size_t count, std::size_t size);
void *__real_realloc(void *block, std::size_t size);
}

namespace {

using namespace std::chrono_literals;

constexpr int USUAL_KEY_COUNT = 323; // what SDL 1.2.15 reports
constexpr auto OTHER_THREAD_SLEEP = 200us;
constexpr auto TURN_FOR_OTHERS = 20us; // so that waiting for another thread does not race the clock ahead

struct clock_script {
    std::atomic<bool> on;
    std::atomic<bool> shared; // another thread has asked for the time
    std::atomic<Uint32> now;
    std::atomic<std::thread::id> driver;
} virtual_clock;

struct dice_script {
    std::mutex lock; // guards the rest
    std::vector<int> values;
    int drawn;
    std::optional<std::mt19937> generator;
} dice;

// Per thread, so that a thread that runs beside the test neither fails nor shifts the count.
struct failure_script {
    int fail_at;
    bool also_later;
    int count;
};
thread_local failure_script failure;

bool drives_clock() {
    if (virtual_clock.driver.load() == std::this_thread::get_id())
        return true;
    virtual_clock.shared = true;
    return false;
}

bool allocation_fails() {
    if (fake_allocation_fails != nullptr && fake_allocation_fails())
        return true;
    const int number = ++failure.count;
    return failure.fail_at > 0 && (number == failure.fail_at || (failure.also_later && number > failure.fail_at));
}

} // namespace

void fake_reset() {
    devices.scripted = false;
    virtual_clock.on = false;
    virtual_clock.shared = false;
    fake_slept = nullptr;
    fake_dice({});
    fake_fail_allocation(0);
    fake_allocation_fails = nullptr;
}

void fake_input_start() {
    if (!devices.scripted)
        devices = {.scripted = true, .key_count = USUAL_KEY_COUNT, .x = 0, .y = 0, .buttons = 0, .keys = {}};
}

void fake_key(int key, bool down) {
    fake_input_start();
    devices.keys.at(static_cast<std::size_t>(key)) = down ? 1 : 0;
}

void fake_keys_up() {
    fake_input_start();
    devices.keys.fill(0);
}

void fake_key_count(int count) {
    fake_input_start();
    devices.key_count = std::min(count, FAKE_KEY_LIMIT);
}

void fake_mouse_move(int x, int y) {
    fake_input_start();
    devices.x = x;
    devices.y = y;
}

void fake_mouse_button(int button, bool down) {
    fake_input_start();
    const int bit = SDL_BUTTON(button);
    devices.buttons = static_cast<Uint8>(down ? devices.buttons | bit : devices.buttons & ~bit);
}

void fake_time_start(u32 now) {
    virtual_clock.now = now;
    virtual_clock.driver = std::this_thread::get_id();
    virtual_clock.on = true;
}

void fake_time_advance(u32 span) {
    virtual_clock.now += span;
}

void fake_dice(std::initializer_list<int> values) {
    const std::scoped_lock hold(dice.lock);
    dice.values = values;
    dice.drawn = 0;
    dice.generator.reset();
}

void fake_dice_seed(unsigned seed) {
    const std::scoped_lock hold(dice.lock);
    dice.generator.emplace(seed);
}

int fake_dice_drawn() {
    const std::scoped_lock hold(dice.lock);
    return dice.drawn;
}

void fake_fail_allocation(int k, bool also_later) {
    failure = {.fail_at = k, .also_later = also_later, .count = 0};
}

int fake_allocations() {
    return failure.count;
}

extern "C" {

Uint8 *__wrap_SDL_GetKeyState(int *count) {
    static std::array<Uint8, FAKE_KEY_LIMIT> polled; // as of the last asking
    if (!devices.scripted)
        return __real_SDL_GetKeyState(count);
    if (count != nullptr)
        *count = devices.key_count;
    polled = devices.keys;
    return polled.data();
}

Uint8 __wrap_SDL_GetMouseState(int *x, int *y) {
    if (!devices.scripted)
        return __real_SDL_GetMouseState(x, y);
    if (x != nullptr)
        *x = devices.x;
    if (y != nullptr)
        *y = devices.y;
    return devices.buttons;
}

Uint32 __wrap_SDL_GetTicks() {
    if (!virtual_clock.on)
        return __real_SDL_GetTicks();
    drives_clock();
    return virtual_clock.now;
}

void __wrap_SDL_Delay(Uint32 span) {
    if (!virtual_clock.on) {
        __real_SDL_Delay(span);
    } else if (drives_clock()) {
        virtual_clock.now += span;
        if (virtual_clock.shared)
            std::this_thread::sleep_for(TURN_FOR_OTHERS);
        if (fake_slept != nullptr)
            fake_slept(span);
    } else {
        std::this_thread::sleep_for(OTHER_THREAD_SLEEP);
    }
}

int __wrap_rand() {
    const std::scoped_lock hold(dice.lock);
    if (dice.generator)
        return static_cast<int>((*dice.generator)() & RAND_MAX);
    if (dice.values.empty())
        return __real_rand();
    return dice.values[static_cast<std::size_t>(dice.drawn++) % dice.values.size()];
}

void *__wrap_malloc(std::size_t size) {
    return allocation_fails() ? nullptr : __real_malloc(size);
}

void *__wrap_calloc(std::size_t count, std::size_t size) {
    return allocation_fails() ? nullptr : __real_calloc(count, size);
}

void *__wrap_realloc(void *block, std::size_t size) {
    return allocation_fails() ? nullptr : __real_realloc(block, size);
}

} // extern "C"
