// archive_builder.h: builds an archive file, sound or damaged, for the code that reads one.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "support/temp_folder.h"

// Adds are chained: archive_builder().add("txt/a", "...").write(game.data("data.dar")).
struct archive_builder {
    file_bytes directory; // the packed entries
    file_bytes contents;  // the data area

    archive_builder &add(const std::string &name, const file_bytes &bytes);
    archive_builder &add(const std::string &name, const std::string &text) { return add(name, to_bytes(text)); }

    // An entry as it stands, without bytes of its own.
    archive_builder &add_raw(const std::string &name, int offset, int size);

    file_bytes bytes() const; // the whole file
    void write(const std::filesystem::path &path) const { write_file(path, bytes()); }
};

void append_i32(file_bytes *bytes, int value); // big-endian

// An XPM text of these rows; colors are lines such as "a c #FF0000".
std::string make_xpm(const std::vector<std::string> &colors, const std::vector<std::string> &rows,
                     int characters_per_pixel = 1);
