// temp_folder.cpp: the temporary game folder.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/temp_folder.h"

#include "core/log.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

namespace fs = std::filesystem;

static constexpr const char *LOG_NAME = "errorlog.log";

temp_game::temp_game() : before(fs::current_path()) {
    std::string name = (fs::temp_directory_path() / "tavimo-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    root = name;
    fs::create_directories(root / "bin");
    fs::create_directories(root / "data");
    fs::current_path(root / "bin");
}

temp_game::~temp_game() {
    log_set_mode(LOG_STDERR);
    std::error_code ignored;
    fs::current_path(before, ignored);
    fs::remove_all(root, ignored);
}

void temp_game::log_to_file() const {
    log_set_file(LOG_NAME);
    log_set_mode(LOG_FILE);
}

std::string temp_game::log_text() const {
    const file_bytes bytes = read_file(root / "bin" / LOG_NAME);
    return std::regex_replace(std::string(bytes.begin(), bytes.end()), std::regex("(^|\n)\\[[0-9]+\\]"), "$1");
}

file_bytes read_file(const fs::path &path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void write_file(const fs::path &path, const file_bytes &bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

file_bytes to_bytes(const std::string &text) {
    return {text.begin(), text.end()};
}
