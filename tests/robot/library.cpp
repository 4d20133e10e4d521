// library.cpp: a reader of the archive, independent of the game's own.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "library.h"
#include "robot.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>

static constexpr std::size_t INT_BYTES = 4;
static constexpr unsigned NAME_SHIFT = 0x80;

struct entry {
    std::size_t offset, size; // of its bytes in the archive
};

static std::string bytes;
static std::map<std::string, entry> entries;
static std::map<std::string, picture> pictures;

static std::size_t number_at(std::size_t position) {
    robot_expect(position + INT_BYTES <= bytes.size(), "the archive's directory is whole");
    std::size_t value = 0;
    for (std::size_t i = 0; i < INT_BYTES; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[position + i]);
    return value;
}

void library_open(const std::string &archive_path) {
    std::ifstream file(archive_path, std::ios::binary);
    robot_expect(file.good(), "the archive " + archive_path + " exists");
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    const std::size_t data = number_at(0);
    for (std::size_t at = INT_BYTES; at < data;) {
        const std::size_t length = number_at(at);
        std::string name = bytes.substr(at + INT_BYTES, length);
        for (char &c : name)
            c = static_cast<char>(static_cast<unsigned char>(c) + NAME_SHIFT);
        at += INT_BYTES + length;
        entries.emplace(name, entry{data + number_at(at), number_at(at + INT_BYTES)});
        at += 2 * INT_BYTES;
    }
}

static std::string content(const std::string &path) {
    const auto found = entries.find(path);
    robot_expect(found != entries.end(), "the archive holds " + path);
    return bytes.substr(found->second.offset, found->second.size);
}

const picture &library_picture(const std::string &name) {
    auto found = pictures.find(name);
    if (found == pictures.end())
        found = pictures.emplace(name, picture_decode(name, content("xpm/" + name))).first;
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

std::string library_text(const std::string &name) {
    return content("txt/" + name);
}

std::string library_sound(const std::string &name) {
    return content("ogg/" + name);
}
