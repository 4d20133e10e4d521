// files.cpp: reading, atomic writing, and listing a folder.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "files.h"

#include "fail.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail_errno(const std::string &message) {
    fail(message + ": " + std::strerror(errno));
}

// Goes away again unless it is renamed.
struct draft {
    fs::path path;

    explicit draft(const fs::path &final_path) : path(final_path.string() + ".part" + std::to_string(getpid())) {}
    draft(const draft &) = delete;
    draft &operator=(const draft &) = delete;
    ~draft() {
        std::error_code ignored;
        fs::remove(path, ignored);
    }
};

} // namespace

std::string file_read(const fs::path &path) {
    std::ifstream in(path, std::ios::binary);
    if (!in || fs::is_directory(path))
        fail("cannot read " + path.string());
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (in.bad())
        fail_errno("cannot read " + path.string());
    return bytes;
}

void file_write(const fs::path &path, std::span<const std::string_view> pieces) {
    const draft written(path);
    std::ofstream out(written.path, std::ios::binary | std::ios::trunc);
    if (!out)
        fail_errno("cannot write " + written.path.string());
    for (const std::string_view piece : pieces)
        out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    out.close();
    if (!out)
        fail_errno("cannot write " + path.string());
    fs::rename(written.path, path);
}

std::vector<std::string> folder_files(const fs::path &folder) {
    if (!fs::is_directory(folder))
        fail(folder.string() + " is not a folder");
    std::vector<std::string> names;
    for (const fs::directory_entry &file : fs::recursive_directory_iterator(folder))
        if (file.is_regular_file())
            names.push_back(file.path().lexically_relative(folder).generic_string());
    std::sort(names.begin(), names.end());
    return names;
}

bool path_lies_in(const fs::path &path, const fs::path &folder) {
    const fs::path below = fs::weakly_canonical(path).lexically_relative(fs::weakly_canonical(folder));
    return !below.empty() && *below.begin() != "..";
}
