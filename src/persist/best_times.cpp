// best_times.cpp: the table in memory: Master places, run logs and player records.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "persist/best_times.h"

#include "core/base/dates.h"
#include "core/base/puzzle_info.h"
#include "core/base/strings.h"
#include "persist/best_times_table.h"

#include <iterator>

static constexpr const char *DEFAULT_MASTERS[] = {"The Master", "Master 2", "Master 3"};
static_assert(std::size(DEFAULT_MASTERS) == MASTER_PLACES);

// --- life ----------------------------------------------------------------------------------------

static void score_entry_free(score_entry *entry) {
    std::free(entry->date);
    std::free(entry->name);
    std::free(entry);
}

static void player_record_free(player_record *player) {
    std::free(player->name);
    std::free(player);
}

i32 best_times_create() {
    best_times = {};
    best_times.players = ptr_array_create(player_record_free);
    bool made = best_times.players != nullptr;
    for (puzzle_scores &scores : best_times.puzzles) {
        scores.log = ptr_array_create(score_entry_free);
        made = made && scores.log != nullptr;
    }
    if (!made)
        best_times_destroy();
    return made ? 1 : -1;
}

void best_times_destroy() {
    for (puzzle_scores &scores : best_times.puzzles) {
        ptr_array_destroy(scores.log);
        for (char *name : scores.master_name)
            std::free(name);
    }
    ptr_array_destroy(best_times.players);
    best_times = {};
}

void best_times_reset() {
    for (i32 p = 0; p < PUZZLE_COUNT && best_times_exist(); ++p) {
        puzzle_scores &scores = best_times.puzzles[p];
        ptr_array_clear(scores.log);
        for (i32 k = 0; k < MASTER_PLACES; ++k) {
            scores.master_time[k] = puzzle_master_time(p, k);
            if (string_set(&scores.master_name[k], DEFAULT_MASTERS[k]) < 0)
                log_out_of_memory();
        }
    }
}

// --- players -------------------------------------------------------------------------------------

// The next character that counts in a name, upper-cased, or 0 at its end.
static char next_letter(const char **name) {
    while (**name == ' ')
        ++*name;
    return **name == '\0' ? '\0' : char_upper(*(*name)++);
}

static bool same_player(const char *a, const char *b) {
    for (;;) {
        const char letter = next_letter(&a);
        if (letter != next_letter(&b))
            return false;
        if (letter == '\0')
            return true;
    }
}

static player_record *add_player(const char *name) {
    auto *player = static_cast<player_record *>(std::calloc(1, sizeof(player_record)));
    if (player == nullptr || string_set(&player->name, name) < 0) {
        log_out_of_memory();
        std::free(player);
        return nullptr;
    }
    if (ptr_array_append(best_times.players, player) < 0) {
        player_record_free(player);
        return nullptr;
    }
    return player;
}

player_record *player_find(const char *name, bool create) {
    if (!best_times_exist())
        return nullptr;
    const char *wanted = name != nullptr ? name : "";
    for (player_record *player : each(best_times.players))
        if (same_player(player->name, wanted))
            return player;
    return create ? add_player(wanted) : nullptr;
}

u32 player_mastered(const char *name) {
    const player_record *player = player_find(name, false);
    return player != nullptr ? player->mastered : 0;
}

// --- runs ----------------------------------------------------------------------------------------

puzzle_scores *best_times_for_puzzle(i32 puzzle) {
    return puzzle >= 0 && puzzle < PUZZLE_COUNT ? &best_times.puzzles[puzzle] : nullptr;
}

static void drop_oldest(ptr_array<score_entry> *log) {
    score_entry *oldest = log->items[log->count - 1];
    ptr_array_remove(log, oldest);
    ptr_array_compact_ordered(log);
    score_entry_free(oldest);
}

static void log_run(ptr_array<score_entry> *log, const char *name, i32 seconds) {
    auto *entry = static_cast<score_entry *>(std::calloc(1, sizeof(score_entry)));
    if (entry == nullptr) {
        log_out_of_memory();
        return;
    }
    entry->seconds = seconds;
    const bool named = string_set(&entry->date, date_stamp().text) >= 0 && string_set(&entry->name, name) >= 0;
    if (!named)
        log_out_of_memory();
    if (!named || ptr_array_prepend(log, entry) < 0)
        score_entry_free(entry);
}

// The first place that is free or held with a longer time, or MASTER_PLACES.
static i32 place_for(const puzzle_scores *scores, i32 seconds) {
    i32 k = 0;
    while (k < MASTER_PLACES && scores->master_time[k] >= 1 && seconds >= scores->master_time[k])
        ++k;
    return k;
}

static void take_master_place(puzzle_scores *scores, const char *name, i32 seconds) {
    const i32 place = place_for(scores, seconds);
    if (place == MASTER_PLACES)
        return;
    char *holder = nullptr;
    if (string_set(&holder, name) < 0) {
        log_out_of_memory();
        return;
    }
    std::free(scores->master_name[MASTER_PLACES - 1]);
    for (i32 k = MASTER_PLACES - 1; k > place; --k) {
        scores->master_time[k] = scores->master_time[k - 1];
        scores->master_name[k] = scores->master_name[k - 1];
    }
    scores->master_time[place] = seconds;
    scores->master_name[place] = holder;
}

void best_times_record(i32 puzzle, const char *name, i32 seconds) {
    puzzle_scores *scores = best_times_for_puzzle(puzzle);
    if (scores == nullptr || !best_times_exist())
        return;
    if (scores->log->count >= LOG_LENGTH)
        drop_oldest(scores->log);
    player_record *player = player_find(name, true);
    if (player == nullptr)
        return;
    const u32 bit = 1U << puzzle;
    if (seconds <= puzzle_mastered_time(puzzle))
        player->mastered |= bit;
    player->seen |= bit;
    log_run(scores->log, name, seconds);
    take_master_place(scores, name, seconds);
}
