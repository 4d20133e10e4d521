// records.cpp: the book.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "records.h"
#include "player/dialogs.h"
#include "player/puzzle_kinds.h"

#include <algorithm>

static constexpr int STUDY_SEEN = PUZZLE_COUNT; // the bit after the puzzles'
static constexpr unsigned STRING_SHIFT = 128;

static constexpr std::array DEFAULT_MASTERS = {"The Master", "Master 2", "Master 3"};

// The seconds of the three masters, and the longest that still counts; by the puzzle's number.
static constexpr int TIMES[PUZZLE_COUNT][PLACES + 1] = {
    {150, 240, 330, 360}, {165, 270, 375, 390}, {150, 240, 330, 360}, {165, 270, 375, 390},
    {150, 225, 320, 360}, {150, 225, 320, 360}, {165, 260, 410, 470}, {190, 260, 345, 405},
    {420, 585, 750, 810}, {150, 240, 330, 390}, {225, 270, 330, 360},
};

struct puzzle_records {
    std::vector<run_record> log;
    std::array<place_record, PLACES> masters;
};

// The player's bits, one a puzzle. There is one player, in the file once something is known of them.
static unsigned mastered, seen;
static bool completed;

static std::array<puzzle_records, PUZZLE_COUNT> &book() {
    static std::array<puzzle_records, PUZZLE_COUNT> all = [] {
        std::array<puzzle_records, PUZZLE_COUNT> made;
        for (std::size_t type = 0; type < made.size(); ++type)
            for (std::size_t k = 0; k < PLACES; ++k)
                made[type].masters[k] = {TIMES[type][k], DEFAULT_MASTERS[k]};
        return made;
    }();
    return all;
}

static puzzle_records &page(int type) {
    return book()[static_cast<std::size_t>(type)];
}

static unsigned bit(int number) {
    return 1U << number;
}

const std::vector<run_record> &records_log(int type) {
    return page(type).log;
}

const std::array<place_record, PLACES> &records_masters(int type) {
    return page(type).masters;
}

int records_master_time(int type) {
    return TIMES[type][PLACES];
}

bool records_mastered(int type) {
    return (mastered & bit(type)) != 0;
}

void records_study_seen() {
    if (!player_name().empty())
        seen |= bit(STUDY_SEEN);
}

void records_run_started(int type) {
    seen |= bit(type);
}

void records_run(int type, const run_record &run) {
    completed = true;
    if (run.seconds <= records_master_time(type))
        mastered |= bit(type);
    page(type).log.insert(page(type).log.begin(), run);
    auto &masters = page(type).masters;
    const auto place = std::find_if(masters.begin(), masters.end(),
                                    [&](const place_record &held) { return run.seconds < held.seconds; });
    if (place == masters.end())
        return;
    std::move_backward(place, masters.end() - 1, masters.end());
    *place = {run.seconds, run.name};
}

static void put(std::string &out, unsigned value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        out += static_cast<char>(value >> shift & 0xFF);
}

static void put(std::string &out, int value) {
    put(out, static_cast<unsigned>(value));
}

static void put(std::string &out, const std::string &text) {
    put(out, static_cast<unsigned>(text.size()));
    for (const char c : text)
        out += static_cast<char>(static_cast<unsigned char>(c) + STRING_SHIFT);
}

std::string records_scores_file() {
    std::string out;
    for (const puzzle_records &puzzle : book()) {
        for (const place_record &place : puzzle.masters) {
            put(out, place.seconds);
            put(out, place.name);
        }
        put(out, static_cast<unsigned>(puzzle.log.size()));
        for (const run_record &run : puzzle.log) {
            put(out, run.date);
            put(out, run.seconds);
            put(out, run.name);
        }
    }
    put(out, seen == 0 ? 0U : 1U); // players
    if (seen != 0) {
        put(out, player_name());
        put(out, mastered);
        put(out, seen);
    }
    return out;
}

std::string records_prefs_file() {
    std::string out;
    put(out, 1);
    put(out, player_name());
    put(out, completed ? 1 : 0);
    return out;
}
