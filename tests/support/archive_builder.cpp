// archive_builder.cpp: archives and pictures for tests, written without the program's own code.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/archive_builder.h"

void append_i32(file_bytes *bytes, int value) {
    const auto word = static_cast<unsigned>(value);
    for (const unsigned byte : {word >> 24, word >> 16, word >> 8, word})
        bytes->push_back(static_cast<unsigned char>(byte));
}

archive_builder &archive_builder::add_raw(const std::string &name, int offset, int size) {
    append_i32(&directory, static_cast<int>(name.size()));
    for (const char c : name)
        directory.push_back(static_cast<unsigned char>(c + 0x80));
    append_i32(&directory, offset);
    append_i32(&directory, size);
    return *this;
}

archive_builder &archive_builder::add(const std::string &name, const file_bytes &bytes) {
    add_raw(name, static_cast<int>(contents.size()), static_cast<int>(bytes.size()));
    contents.insert(contents.end(), bytes.begin(), bytes.end());
    return *this;
}

file_bytes archive_builder::bytes() const {
    file_bytes all;
    append_i32(&all, static_cast<int>(directory.size()) + 4);
    all.insert(all.end(), directory.begin(), directory.end());
    all.insert(all.end(), contents.begin(), contents.end());
    return all;
}

std::string make_xpm(const std::vector<std::string> &colors, const std::vector<std::string> &rows,
                     int characters_per_pixel) {
    const std::size_t width = rows.empty() ? 0 : rows[0].size() / static_cast<std::size_t>(characters_per_pixel);
    std::string text = "/* XPM */\nstatic char *picture[] = {\n\"" + std::to_string(width) + " " +
                       std::to_string(rows.size()) + " " + std::to_string(colors.size()) + " " +
                       std::to_string(characters_per_pixel) + "\"";
    for (const std::vector<std::string> *lines : {&colors, &rows})
        for (const std::string &line : *lines)
            text += ",\n\"" + line + "\"";
    return text + "\n};\n";
}
