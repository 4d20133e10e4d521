// library.cpp: the archive's entries, as the robot knows them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "library.h"
#include "archive_file.h"
#include "entry_names.h"
#include "robot.h"

#include <exception>
#include <map>

static archive_file archive;
static std::map<std::string, picture> pictures;

void library_open(const std::filesystem::path &path) {
    try {
        archive = archive_read_sound(path);
    } catch (const std::exception &fault) {
        robot_give_up(std::string("the archive can be read: ") + fault.what());
    }
}

const std::string &library_bytes(const std::string &path) {
    const archive_entry *entry = archive_find(archive, path);
    if (entry == nullptr)
        robot_give_up("the archive holds " + path);
    return entry->bytes;
}

const picture &library_picture(const std::string &entry) {
    auto found = pictures.find(entry);
    if (found == pictures.end())
        found = pictures.emplace(entry, picture_decode(entry, library_bytes(entry))).first;
    return found->second;
}

const picture &library_picture(const picture_set &set, int k) {
    return library_picture(entry_of(set, k));
}

const picture &library_puzzle(int type, puzzle_picture id, int k) {
    return library_picture(entry_of_puzzle(type, id, k));
}

std::vector<const picture *> library_puzzle_series(int type, puzzle_picture id) {
    std::vector<const picture *> series;
    for (int k = 0; k < puzzle_picture_count(PUZZLE_LAYOUTS[type], id); ++k)
        series.push_back(&library_puzzle(type, id, k));
    return series;
}
