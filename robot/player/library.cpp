// library.cpp: the archive's entries, as the robot knows them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "library.h"
#include "archive_file.h"
#include "robot.h"

#include <cstdio>
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

const picture &library_picture(const std::string &name) {
    auto found = pictures.find(name);
    if (found == pictures.end())
        found = pictures.emplace(name, picture_decode(name, library_bytes("xpm/" + name))).first;
    return found->second;
}

const picture &library_picture(const std::string &folder, int number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%03i.xpm", number);
    return library_picture(folder + digits);
}

std::vector<const picture *> library_series(const std::string &folder, int count) {
    std::vector<const picture *> series;
    for (int number = 1; number <= count; ++number)
        series.push_back(&library_picture(folder, number));
    return series;
}
