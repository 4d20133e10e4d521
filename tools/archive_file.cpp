// archive_file.cpp: the directory, both ways.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "archive_file.h"

#include "fail.h"
#include "files.h"
#include "resources/archive_format.h"

#include <algorithm>
#include <limits>

namespace {

constexpr i64 LARGEST = std::numeric_limits<i32>::max(); // bytes of an archive, which counts in 32 bits

// Names are stored, and restored, by the same shift of every byte.
std::string shifted(std::string_view name) {
    std::string result(name);
    for (char &c : result)
        c = static_cast<char>(static_cast<u8>(c) + ARCHIVE_NAME_SHIFT);
    return result;
}

i64 i32_at(std::string_view bytes, std::size_t at) {
    return big_endian_i32(reinterpret_cast<const u8 *>(bytes.data() + at));
}

void append_i32(std::string *bytes, std::size_t value) {
    u8 stored[ARCHIVE_INT_BYTES];
    put_big_endian_i32(stored, static_cast<i32>(value));
    bytes->append(reinterpret_cast<const char *>(stored), ARCHIVE_INT_BYTES);
}

// Reads the entry at the head of what is left of the directory and cuts it off. False when there is no whole one.
bool read_entry(std::string_view *left, std::string_view data, archive_file *archive) {
    constexpr std::size_t int_bytes = ARCHIVE_INT_BYTES, entry_bytes = ARCHIVE_ENTRY_BYTES;
    const i64 length = left->size() >= entry_bytes ? i32_at(*left, 0) : 0;
    if (length < 1 || static_cast<std::size_t>(length) > left->size() - entry_bytes)
        return false;
    const auto name_bytes = static_cast<std::size_t>(length);
    const std::string name = shifted(left->substr(int_bytes, name_bytes));
    const i64 offset = i32_at(*left, int_bytes + name_bytes), size = i32_at(*left, 2 * int_bytes + name_bytes);
    if (offset < 0 || size < 0 || offset + size > static_cast<i64>(data.size()))
        archive->damage.push_back({name, "lies outside the archive"});
    else
        archive->entries.push_back(
            {name, std::string(data.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(size)))});
    left->remove_prefix(entry_bytes + name_bytes);
    return true;
}

} // namespace

archive_file archive_read(const std::filesystem::path &path) {
    const std::string bytes = file_read(path);
    const i64 data_base = bytes.size() >= ARCHIVE_HEADER_BYTES ? i32_at(bytes, 0) : 0;
    if (data_base < ARCHIVE_HEADER_BYTES || data_base > static_cast<i64>(bytes.size()))
        fail(path.string() + " is not an archive, or cut short");
    const std::string_view whole = bytes;
    const std::string_view data = whole.substr(static_cast<std::size_t>(data_base));
    std::string_view left = whole.substr(0, static_cast<std::size_t>(data_base)).substr(ARCHIVE_HEADER_BYTES);
    archive_file archive;
    while (!left.empty()) {
        if (!read_entry(&left, data, &archive)) {
            archive.damage.push_back(
                {path.string(), "the directory is damaged " + std::to_string(left.size()) + " bytes before its end"});
            break;
        }
    }
    return archive;
}

archive_file archive_read_sound(const std::filesystem::path &path) {
    archive_file archive = archive_read(path);
    if (!archive.damage.empty())
        fail(path.string() + ": " + archive.damage[0].where + ": " + archive.damage[0].what);
    return archive;
}

void archive_write(const std::filesystem::path &path, const std::vector<archive_entry> &entries) {
    i64 total = ARCHIVE_HEADER_BYTES, data = 0;
    for (const archive_entry &entry : entries) {
        total += ARCHIVE_ENTRY_BYTES + static_cast<i64>(entry.name.size());
        data += static_cast<i64>(entry.bytes.size());
    }
    if (total + data > LARGEST)
        fail("the entries are too large for an archive, which ends at 2 GiB");
    std::string directory;
    std::vector<std::string_view> pieces = {""}; // the directory's place
    append_i32(&directory, static_cast<std::size_t>(total));
    std::size_t offset = 0;
    for (const archive_entry &entry : entries) {
        append_i32(&directory, entry.name.size());
        directory += shifted(entry.name);
        append_i32(&directory, offset);
        append_i32(&directory, entry.bytes.size());
        offset += entry.bytes.size();
        pieces.push_back(entry.bytes);
    }
    pieces[0] = directory;
    file_write(path, pieces);
}

const archive_entry *archive_find(const archive_file &archive, std::string_view name) {
    const auto found = std::find_if(archive.entries.begin(), archive.entries.end(),
                                    [name](const archive_entry &entry) { return entry.name == name; });
    return found != archive.entries.end() ? &*found : nullptr;
}
