// temp_folder.cpp: the temporary game folder.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "support/temp_folder.h"

#include "core/base/log.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
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
    std::ifstream in(root / "bin" / LOG_NAME);
    std::string all, line;
    while (std::getline(in, line)) {
        const std::size_t end = line.find_first_not_of("0123456789", 1);
        const bool prefixed = line[0] == '[' && end != std::string::npos && line[end] == ']';
        all += (prefixed ? line.substr(end + 1) : line) + "\n";
    }
    return all;
}

std::string masked_digits(std::string text) {
    for (char &c : text)
        c = c >= '0' && c <= '9' ? '0' : c;
    return text;
}

file_bytes read_file(const fs::path &path) {
    if (!fs::is_regular_file(path))
        return {};
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
