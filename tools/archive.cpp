// archive.cpp: the archive tool: packs a folder into an archive file, lists one, extracts one.
//
// Files are written beside their final name and renamed, so that none is ever seen half-written. Failures are
// exceptions up to main, which prints them; exit codes are 0, 1 (failed) and 2 (wrong usage).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "resources/archive_format.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

static constexpr int EXIT_FAILED = 1, EXIT_USAGE = 2;
static constexpr i64 LARGEST = std::numeric_limits<i32>::max(); // bytes of an archive, which counts in 32 bits
static constexpr std::size_t COPY_CHUNK = 64 * 1024;            // bytes
static constexpr std::string_view USAGE = R"(Usage: tavimo-archive pack FOLDER FILE
       tavimo-archive list FILE
       tavimo-archive extract FILE FOLDER

  pack     writes every file below FOLDER into the archive FILE, in the order of their names
  list     prints the size in bytes and the name of every entry
  extract  writes every entry into FOLDER, which is made if it is missing

Exit codes: 0 done, 1 failed, 2 wrong usage.
)";

[[noreturn]] static void fail(const std::string &message) {
    throw std::runtime_error(message);
}

[[noreturn]] static void fail_errno(const std::string &message) {
    fail(message + ": " + std::strerror(errno));
}

// --- progress ------------------------------------------------------------------------------------

// A bar on standard error, once the work has taken a while and only on a terminal.
struct progress {
    const char *verb;
    i64 total;
    i64 done = 0; // bytes
    bool shown = false;
    bool terminal = isatty(STDERR_FILENO) != 0;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point last = start;

    progress(const char *the_verb, i64 the_total) : verb(the_verb), total(std::max<i64>(the_total, 1)) {}
    progress(const progress &) = delete;
    progress &operator=(const progress &) = delete;
    ~progress() {
        if (shown)
            std::fputc('\n', stderr);
    }
};

static void advance(progress *bar, std::size_t bytes) {
    using namespace std::chrono_literals;
    constexpr i64 bar_length = 40, percent = 100;
    bar->done += static_cast<i64>(bytes);
    const auto now = std::chrono::steady_clock::now();
    if (!bar->terminal || now - bar->start < 2s || (now - bar->last < 100ms && bar->done < bar->total))
        return;
    const auto filled = static_cast<std::size_t>(bar->done * bar_length / bar->total);
    std::string cells(bar_length, ' ');
    std::fill_n(cells.begin(), std::min(filled, cells.size()), '#');
    std::fprintf(stderr, "\r%s [%s] %3lld%%", bar->verb, cells.c_str(),
                 static_cast<long long>(bar->done * percent / bar->total));
    bar->shown = true;
    bar->last = now;
}

// --- files ---------------------------------------------------------------------------------------

// A file in the making; it takes its name with commit, or goes away.
struct new_file {
    fs::path path, draft;
    std::ofstream out;

    explicit new_file(const fs::path &the_path)
        : path(the_path), draft(the_path.string() + ".part" + std::to_string(getpid())),
          out(draft, std::ios::binary | std::ios::trunc) {
        if (!out)
            fail_errno("cannot write " + draft.string());
    }
    new_file(const new_file &) = delete;
    new_file &operator=(const new_file &) = delete;
    ~new_file() {
        std::error_code ignored;
        if (!draft.empty())
            fs::remove(draft, ignored);
    }
};

static void commit(new_file *file) {
    file->out.close();
    if (!file->out)
        fail_errno("cannot write " + file->path.string());
    fs::rename(file->draft, file->path);
    file->draft.clear();
}

static std::ifstream open_input(const fs::path &path) {
    std::ifstream in(path, std::ios::binary);
    if (!in || fs::is_directory(path))
        fail("cannot read " + path.string());
    return in;
}

static void copy_bytes(std::istream &in, std::ostream &out, i64 count, const std::string &name, progress *bar) {
    std::array<char, COPY_CHUNK> chunk;
    while (count > 0) {
        const i64 n = std::min<i64>(count, COPY_CHUNK);
        if (!in.read(chunk.data(), n))
            fail(name + " ended early");
        if (!out.write(chunk.data(), n))
            fail_errno("cannot write " + name);
        advance(bar, static_cast<std::size_t>(n));
        count -= n;
    }
}

static void put_i32(std::ostream &out, i64 value) {
    std::array<u8, ARCHIVE_INT_BYTES> bytes;
    put_big_endian_i32(bytes.data(), static_cast<i32>(value));
    out.write(reinterpret_cast<const char *>(bytes.data()), ARCHIVE_INT_BYTES);
}

static i64 get_i32(std::istream &in) {
    std::array<u8, ARCHIVE_INT_BYTES> bytes = {};
    in.read(reinterpret_cast<char *>(bytes.data()), ARCHIVE_INT_BYTES);
    return big_endian_i32(bytes.data());
}

// Names are stored, and restored, by the same shift of every byte.
static std::string shifted(std::string name) {
    for (char &c : name)
        c = static_cast<char>(static_cast<u8>(c) + ARCHIVE_NAME_SHIFT);
    return name;
}

struct entry {
    std::string name;
    i64 offset; // bytes from the start of the data area
    i64 size;   // bytes

    bool operator<(const entry &other) const { return name < other.name; }
};

static i64 total_size(const std::vector<entry> &entries) {
    i64 total = 0;
    for (const entry &e : entries)
        total += e.size;
    return total;
}

// --- pack ----------------------------------------------------------------------------------------

// The files below the folder in the order of their names, with their places in the data area.
static std::vector<entry> scan_folder(const fs::path &folder) {
    if (!fs::is_directory(folder))
        fail(folder.string() + " is not a folder");
    std::vector<entry> entries;
    for (const fs::directory_entry &file : fs::recursive_directory_iterator(folder))
        if (file.is_regular_file())
            entries.push_back(
                {file.path().lexically_relative(folder).generic_string(), 0, static_cast<i64>(file.file_size())});
    std::sort(entries.begin(), entries.end());
    i64 offset = 0;
    for (entry &e : entries) {
        e.offset = offset;
        offset += e.size;
    }
    return entries;
}

static i64 directory_size(const std::vector<entry> &entries) {
    i64 size = ARCHIVE_HEADER_BYTES;
    for (const entry &e : entries)
        size += ARCHIVE_ENTRY_BYTES + static_cast<i64>(e.name.size());
    return size;
}

static bool lies_in(const fs::path &path, const fs::path &folder) {
    const fs::path below = fs::weakly_canonical(path).lexically_relative(fs::weakly_canonical(folder));
    return !below.empty() && *below.begin() != "..";
}

static void pack(const fs::path &folder, const fs::path &path) {
    const std::vector<entry> entries = scan_folder(folder);
    if (lies_in(path, folder))
        fail("the archive would lie in the folder that it packs");
    const i64 directory = directory_size(entries), data = total_size(entries);
    if (directory + data > LARGEST)
        fail("the files are too large for an archive, which ends at 2 GiB");
    new_file file(path);
    put_i32(file.out, directory);
    for (const entry &e : entries) {
        put_i32(file.out, static_cast<i64>(e.name.size()));
        file.out << shifted(e.name);
        put_i32(file.out, e.offset);
        put_i32(file.out, e.size);
    }
    progress bar("Packing", data);
    for (const entry &e : entries) {
        std::ifstream in = open_input(folder / e.name);
        copy_bytes(in, file.out, e.size, e.name, &bar);
    }
    commit(&file);
    std::printf("%s: %zu entries, %lld bytes\n", path.c_str(), entries.size(),
                static_cast<long long>(directory + data));
}

// --- list and extract ----------------------------------------------------------------------------

struct archive {
    std::ifstream in;
    i64 data_base; // file offset of the data area
    std::vector<entry> entries;
};

static entry read_entry(std::istream &in, i64 left, i64 data_size) {
    const i64 name_length = left >= ARCHIVE_ENTRY_BYTES ? get_i32(in) : 0;
    if (name_length < 1 || name_length > left - ARCHIVE_ENTRY_BYTES)
        fail("the directory is damaged");
    std::string name(static_cast<std::size_t>(name_length), '\0');
    in.read(name.data(), name_length);
    entry e = {shifted(name), 0, 0};
    e.offset = get_i32(in);
    e.size = get_i32(in);
    if (!in || e.offset < 0 || e.size < 0 || e.offset + e.size > data_size)
        fail("entry " + e.name + " lies outside the archive");
    return e;
}

static archive open_archive(const fs::path &path) {
    archive opened = {open_input(path), 0, {}};
    const auto size = static_cast<i64>(fs::file_size(path));
    opened.data_base = get_i32(opened.in);
    if (!opened.in || opened.data_base < ARCHIVE_HEADER_BYTES || opened.data_base > size)
        fail(path.string() + " is not an archive, or cut short");
    for (i64 left = opened.data_base - ARCHIVE_HEADER_BYTES; left > 0;) {
        opened.entries.push_back(read_entry(opened.in, left, size - opened.data_base));
        left -= ARCHIVE_ENTRY_BYTES + static_cast<i64>(opened.entries.back().name.size());
    }
    return opened;
}

static void list(const fs::path &path) {
    for (const entry &e : open_archive(path).entries)
        std::printf("%10lld %s\n", static_cast<long long>(e.size), e.name.c_str());
}

// Whether the name is a plain relative path: no root, no empty or dotted part, no terminator.
static bool safe_name(const std::string &name) {
    if (name.find('\0') != std::string::npos)
        return false;
    for (std::size_t start = 0; start <= name.size();) {
        const std::size_t end = std::min(name.find('/', start), name.size());
        const std::string part = name.substr(start, end - start);
        if (part.empty() || part == "." || part == "..")
            return false;
        start = end + 1;
    }
    return true;
}

static void extract(const fs::path &path, const fs::path &folder) {
    archive opened = open_archive(path);
    for (const entry &e : opened.entries)
        if (!safe_name(e.name))
            fail("entry \"" + e.name + "\" has a name that leads outside the folder; nothing was written");
    fs::create_directories(folder);
    progress bar("Extracting", total_size(opened.entries));
    std::set<std::string> written;
    for (const entry &e : opened.entries) {
        if (!written.insert(e.name).second)
            continue; // the first of two equal names is the one that readers find
        const fs::path target = folder / e.name;
        if (!lies_in(target.parent_path(), folder)) // a link that was there before
            fail(target.string() + " leads outside the folder");
        fs::create_directories(target.parent_path());
        new_file file(target);
        opened.in.seekg(opened.data_base + e.offset);
        copy_bytes(opened.in, file.out, e.size, e.name, &bar);
        commit(&file);
    }
    std::printf("%s: %zu files\n", folder.c_str(), written.size());
}

// -------------------------------------------------------------------------------------------------

static int run(const std::vector<std::string> &arguments) {
    const std::string command = arguments.empty() ? "" : arguments[0];
    const std::size_t count = arguments.size();
    if (command == "--help" || command == "-h")
        std::cout << USAGE;
    else if (command == "pack" && count == 3)
        pack(arguments[1], arguments[2]);
    else if (command == "list" && count == 2)
        list(arguments[1]);
    else if (command == "extract" && count == 3)
        extract(arguments[1], arguments[2]);
    else {
        std::cerr << USAGE;
        return EXIT_USAGE;
    }
    return 0;
}

int main(int argc, char **argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception &failure) {
        std::cerr << "tavimo-archive: " << failure.what() << "\n";
        return EXIT_FAILED;
    }
}
