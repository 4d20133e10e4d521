// records.cpp: the book.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "records.h"
#include "puzzle_kinds.h"

#include <cctype>

static constexpr int STUDY_SEEN = 11; // the bit after the puzzles'
static constexpr unsigned STRING_SHIFT = 128;
static constexpr std::size_t LOG_LENGTH = 20;
static constexpr std::array DEFAULT_MASTERS = {"The Master", "Master 2", "Master 3"};

struct puzzle_records {
    std::vector<run_record> log;
    std::array<place_record, PLACES> masters;
};
struct player_record {
    std::string name;
    unsigned mastered = 0, seen = 0; // a bit a puzzle
};

static std::string name;
static bool completed;
static std::vector<player_record> players;

static std::array<puzzle_records, PUZZLE_COUNT> &book() {
    static std::array<puzzle_records, PUZZLE_COUNT> all = [] {
        std::array<puzzle_records, PUZZLE_COUNT> made;
        for (std::size_t type = 0; type < made.size(); ++type)
            for (std::size_t k = 0; k < PLACES; ++k)
                made[type].masters[k] = {puzzle_kind_of(static_cast<int>(type)).master_seconds[k], DEFAULT_MASTERS[k]};
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

// Spaces and capitals do not tell players apart.
static std::string reduced(const std::string &text) {
    std::string result;
    for (const char c : text)
        if (c != ' ')
            result += static_cast<char>(std::toupper(c));
    return result;
}

static player_record *find_player() {
    for (player_record &player : players)
        if (reduced(player.name) == reduced(name))
            return &player;
    return nullptr;
}

static player_record &player() {
    if (find_player() == nullptr)
        players.push_back({name, 0, 0});
    return *find_player();
}

const std::vector<run_record> &records_log(int type) {
    return page(type).log;
}

const std::array<place_record, PLACES> &records_masters(int type) {
    return page(type).masters;
}

bool records_mastered(int type) {
    const player_record *known = name.empty() ? nullptr : find_player();
    return known != nullptr && (known->mastered & bit(type)) != 0;
}

void records_set_name(const std::string &typed) {
    name = typed;
}

const std::string &records_name() {
    return name;
}

void records_study_seen() {
    if (!name.empty())
        player().seen |= bit(STUDY_SEEN);
}

void records_run_started(int type) {
    player().seen |= bit(type);
}

void records_run(int type, const run_record &run) {
    completed = true;
    if (run.seconds <= puzzle_kind_of(type).master_seconds[PLACES])
        player().mastered |= bit(type);
    std::vector<run_record> &log = page(type).log;
    log.insert(log.begin(), run);
    if (log.size() > LOG_LENGTH)
        log.pop_back();
    auto &masters = page(type).masters;
    for (std::size_t k = 0; k < PLACES; ++k)
        if (run.seconds < masters[k].seconds) {
            for (std::size_t lower = PLACES - 1; lower > k; --lower)
                masters[lower] = masters[lower - 1];
            masters[k] = {run.seconds, run.name};
            break;
        }
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
    put(out, static_cast<unsigned>(players.size()));
    for (const player_record &one : players) {
        put(out, one.name);
        put(out, one.mastered);
        put(out, one.seen);
    }
    return out;
}

std::string records_prefs_file() {
    std::string out;
    put(out, 1);
    put(out, name);
    put(out, completed ? 1 : 0);
    return out;
}
