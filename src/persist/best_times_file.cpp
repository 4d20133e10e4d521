// best_times_file.cpp: the file ..\data\scores. It has no header: the puzzles' Master places and logs, then
// the players.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "persist/best_times_file.h"

#include "core/base/strings.h"
#include "persist/best_times_table.h"
#include "persist/stored_file.h"

static constexpr const char *SCORES_PATH = "..\\data\\scores";
static constexpr const char *KEPT_PATH = "..\\data\\scores.bad";
static constexpr i32 RECORD_BYTES = 3 * STORED_INT_BYTES; // of a run or a player whose strings are empty

// --- loading -------------------------------------------------------------------------------------

// Makes a record, lets it read itself and appends it; what could not be read whole goes away again.
template <class T>
static bool read_record(stored_reader *reader, ptr_array<T> *list, bool (*read_fields)(stored_reader *, T *)) {
    auto *record = static_cast<T *>(std::calloc(1, sizeof(T)));
    if (record == nullptr) {
        stored_give_up(reader);
        return false;
    }
    if (!read_fields(reader, record)) {
        list->free_item(record);
        return false;
    }
    if (ptr_array_append(list, record) < 0) {
        list->free_item(record);
        stored_give_up(reader);
        return false;
    }
    return true;
}

template <class T>
static bool read_list(stored_reader *reader, ptr_array<T> *list, bool (*read_fields)(stored_reader *, T *)) {
    i32 count = 0;
    if (!stored_read_count(reader, &count, RECORD_BYTES))
        return false;
    for (i32 i = 0; i < count; ++i)
        if (!read_record(reader, list, read_fields))
            return false;
    return true;
}

// Unlike a Master place, a record always has its strings.
static bool read_present_string(stored_reader *reader, char **text) {
    if (!stored_read_string(reader, text))
        return false;
    if (*text == nullptr && string_set(text, "") < 0)
        stored_give_up(reader);
    return *text != nullptr;
}

static bool read_run(stored_reader *reader, score_entry *entry) {
    return read_present_string(reader, &entry->date) && stored_read_i32(reader, &entry->seconds) &&
           read_present_string(reader, &entry->name);
}

static bool read_player(stored_reader *reader, player_record *player) {
    return read_present_string(reader, &player->name) && stored_read_u32(reader, &player->mastered) &&
           stored_read_u32(reader, &player->seen);
}

static bool read_puzzle(stored_reader *reader, puzzle_scores *scores) {
    ptr_array_clear(scores->log);
    for (i32 k = 0; k < MASTER_PLACES; ++k)
        if (!stored_read_i32(reader, &scores->master_time[k]) || !stored_read_string(reader, &scores->master_name[k]))
            return false;
    return read_list(reader, scores->log, read_run);
}

static void read_table(stored_reader *reader) {
    bool whole = true;
    for (puzzle_scores &scores : best_times.puzzles)
        whole = whole && read_puzzle(reader, &scores);
    if (whole) {
        ptr_array_clear(best_times.players);
        read_list(reader, best_times.players, read_player);
    }
}

i32 best_times_load() {
    if (!best_times_exist())
        return -1;
    stored_reader reader;
    const bool opened = stored_open(&reader, SCORES_PATH);
    if (opened) {
        read_table(&reader);
        stored_close(&reader);
    } else {
        best_times_reset();
    }
    best_times.damaged = reader.damaged;
    return opened ? 1 : -1;
}

// --- saving --------------------------------------------------------------------------------------

static void put_puzzle(stored_writer *writer, const puzzle_scores *scores) {
    for (i32 k = 0; k < MASTER_PLACES; ++k) {
        stored_put_i32(writer, scores->master_time[k]);
        stored_put_string(writer, scores->master_name[k]);
    }
    stored_put_i32(writer, scores->log->count);
    for (const score_entry *entry : each(scores->log)) {
        stored_put_string(writer, entry->date);
        stored_put_i32(writer, entry->seconds);
        stored_put_string(writer, entry->name);
    }
}

i32 best_times_save() {
    if (!best_times_exist())
        return -1;
    stored_writer writer;
    stored_begin(&writer);
    for (const puzzle_scores &scores : best_times.puzzles)
        put_puzzle(&writer, &scores);
    stored_put_i32(&writer, best_times.players->count);
    for (const player_record *player : each(best_times.players)) {
        stored_put_string(&writer, player->name);
        stored_put_i32(&writer, static_cast<i32>(player->mastered));
        stored_put_i32(&writer, static_cast<i32>(player->seen));
    }
    return stored_finish(&writer, SCORES_PATH, KEPT_PATH, &best_times.damaged);
}
