// soak.cpp: the memory in use at the same point of each round of all puzzles.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "graphics/draw_queue.h"
#include "graphics/frame_buffers.h"
#include "graphics/repeat.h"
#include "monkey/monkey.h"
#include "persist/best_times.h"
#include "sound/sound.h"
#include "sound/sound_bank.h"

#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

static constexpr long LEARNING_ROUNDS = 3;  // until all glyphs have been coloured
static constexpr long HEAP_SLACK = 8 << 10; // bytes
static constexpr long RSS_SLACK = 4 << 20;
static constexpr int SOUND_TAIL = 70; // times 10 ms, until no sound is playing

// Full logs, so that a recorded run takes the place of another one.
static void fill_logs() {
    for (i32 i = 0; i < PUZZLE_COUNT * LOG_LENGTH; ++i)
        best_times_record(i % PUZZLE_COUNT, "Anonymous", 1);
}

// Any round may be the first in which a rare one is heard.
static void load_sounds() {
    for (i32 number = 0; number < SOUND_COUNT; ++number)
        static_cast<void>(sound_bank_get(number));
}

static long resident_bytes() {
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

// The blocks that grow to the longest list or rectangle of all frames and are used again stay out.
static long heap_bytes() {
    repeat_free();
    const struct mallinfo2 info = mallinfo2();
    long used = static_cast<long>(info.uordblks + info.hblkhd);
    for (const draw_block &list : draw_queue.lists)
        used -= list.capacity;
    for (const save_slot &slot : frames.slots)
        used -= slot.capacity;
    return used;
}

void soak_measure() {
    static long runs_begun = 0, first_heap = 0, first_rss = 0;
    if (runs_begun == 0) {
        fill_logs();
        load_sounds();
    }
    if (runs_begun++ % PUZZLE_COUNT != 0)
        return;
    for (int i = 0; i < SOUND_TAIL; ++i) {
        usleep(10'000);
        sound_update();
    }
    const long heap = heap_bytes(), rss = resident_bytes(), round = runs_begun / PUZZLE_COUNT;
    std::printf("round %ld: frame %ld, %ld bytes of heap, %ld KiB resident\n", round, report->run_frames, heap,
                rss >> 10);
    std::fflush(stdout);
    if (round <= LEARNING_ROUNDS) {
        first_heap = heap;
        first_rss = rss;
    } else if (heap > first_heap + HEAP_SLACK || rss > first_rss + RSS_SLACK || rss == 0) {
        monkey_fail("memory grows");
    }
}
