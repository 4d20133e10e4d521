// commands_write.cpp: the commands that write archives and folders: pack, replace, extract.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "commands_write.h"

#include "check.h"
#include "entries.h"
#include "fail.h"
#include "files.h"
#include "matching.h"
#include "picture_png.h"
#include "picture_reduce.h"
#include "progress.h"

#include <cstdio>
#include <set>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view XPM = ".xpm", PNG = ".png";

std::string with_suffix(const std::string &name, std::string_view suffix) {
    return name.substr(0, name.rfind('.')).append(suffix);
}

std::string joined(const std::vector<std::string> &lines) {
    std::string text;
    for (const std::string &line : lines)
        text += (text.empty() ? "" : "\n  ") + line;
    return text;
}

// The entry that a file becomes; a PNG picture becomes XPM when the entry is one.
archive_entry entry_from_file(const fs::path &path, const std::string &name) {
    std::string bytes = file_read(path);
    if (path.extension() == PNG && name.ends_with(XPM)) {
        const kit_entry *known = kit_find(name);
        const raster source = picture_from_png(bytes, path.string());
        if (known != nullptr && !size_fits(known->size, source.width, source.height))
            fail(path.string() + ": is " + picture_size_text(source.width, source.height) + ", but " + name +
                 " must be " + size_rule_text(known->size) + ": " + known->role);
        bytes = picture_to_xpm(picture_reduce(source, path.string()));
    }
    return {name, std::move(bytes)};
}

struct file_for_entry {
    std::string name;
    fs::path path;
};

// Every file becomes an entry, or all that stands against it is reported in one go.
std::vector<archive_entry> read_all(const char *verb, const std::vector<file_for_entry> &files) {
    std::vector<archive_entry> entries;
    std::vector<std::string> refusals;
    progress bar(verb, files.size());
    for (const file_for_entry &file : files) {
        try {
            entries.push_back(entry_from_file(file.path, file.name));
        } catch (const std::exception &refusal) {
            refusals.emplace_back(refusal.what());
        }
        progress_step(&bar);
    }
    if (!refusals.empty())
        fail(joined(refusals));
    return entries;
}

// The folder's files in the order of the entries that they become.
std::vector<file_for_entry> files_below(const fs::path &folder) {
    std::vector<file_for_entry> files;
    for (const std::string &file : folder_files(folder)) {
        const bool png = file.starts_with("xpm/") && file.ends_with(PNG);
        files.push_back({png ? with_suffix(file, XPM) : file, folder / file});
    }
    std::sort(files.begin(), files.end(),
              [](const file_for_entry &a, const file_for_entry &b) { return a.name < b.name; });
    for (std::size_t i = 1; i < files.size(); ++i)
        if (files[i].name == files[i - 1].name)
            fail(files[i - 1].path.string() + " and " + files[i].path.string() + " would be one entry; remove one");
    return files;
}

// --- replace -------------------------------------------------------------------------------------

std::vector<file_for_entry> named_files(const command_arguments &arguments) {
    if (arguments.size() == 2)
        return files_below(arguments[1]);
    if (arguments.size() % 2 == 0)
        fail("the last name, " + arguments.back() + ", has no file");
    std::vector<file_for_entry> files;
    for (std::size_t i = 1; i < arguments.size(); i += 2)
        files.push_back({arguments[i], arguments[i + 1]});
    return files;
}

void put_entry(archive_file *archive, archive_entry fresh) {
    for (archive_entry &entry : archive->entries) {
        if (entry.name == fresh.name) {
            entry.bytes = std::move(fresh.bytes);
            return;
        }
    }
    archive->entries.push_back(std::move(fresh));
}

std::set<std::string> faults_of(const archive_file &archive) {
    std::set<std::string> faults;
    for (const finding &f : check_archive(archive))
        faults.insert(finding_text(f));
    return faults;
}

// --- extract -------------------------------------------------------------------------------------

// Whether the name is a plain relative path: no root, no empty or dotted part, no terminator.
bool safe_name(const std::string &name) {
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

// What the entry is written as; a picture that cannot be read is written as it is.
archive_entry outgoing(const archive_entry &entry, bool raw) {
    if (raw || !entry.name.ends_with(XPM))
        return entry;
    const xpm_reading reading = picture_from_xpm(entry.bytes);
    if (!reading.result) {
        std::fprintf(stderr, "tavimo-archive: %s: %s; extracted as it is\n", entry.name.c_str(), reading.fault.c_str());
        return entry;
    }
    return {with_suffix(entry.name, PNG), picture_to_png(*reading.result, entry.name)};
}

} // namespace

int command_pack(const command_arguments &arguments, const command_options &options) {
    const fs::path folder = arguments[0], path = arguments[1];
    const std::vector<file_for_entry> files = files_below(folder);
    if (path_lies_in(path, folder))
        fail("the archive would lie in the folder that it packs");
    const std::vector<archive_entry> entries = read_all("Packing", files);
    archive_write(path, entries);
    if (!options.quiet)
        std::printf("%s: %zu entries, %ju bytes\n", path.c_str(), entries.size(), fs::file_size(path));
    return 0;
}

int command_replace(const command_arguments &arguments, const command_options &options) {
    archive_file archive = archive_read_sound(arguments[0]);
    const std::vector<file_for_entry> files = named_files(arguments);
    std::vector<archive_entry> entries = read_all("Reading", files);
    const std::set<std::string> before = faults_of(archive);
    for (archive_entry &entry : entries)
        put_entry(&archive, std::move(entry));
    std::vector<std::string> fresh;
    for (const std::string &fault : faults_of(archive))
        if (!before.contains(fault))
            fresh.push_back(fault);
    if (!fresh.empty())
        fail("the archive is left as it is, because these faults would be new:\n  " + joined(fresh));
    const fs::path path = options.output.empty() ? fs::path(arguments[0]) : options.output;
    archive_write(path, archive.entries);
    if (!options.quiet)
        std::printf("%s: %zu entries replaced\n", path.c_str(), files.size());
    return 0;
}

int command_extract(const command_arguments &arguments, const command_options &options) {
    const archive_file archive = archive_read_sound(arguments[0]);
    const fs::path folder = arguments[1];
    const name_patterns patterns(arguments, 2);
    for (const archive_entry &entry : archive.entries)
        if (!safe_name(entry.name))
            fail("entry \"" + entry.name + "\" has a name that leads outside the folder; nothing was written");
    fs::create_directories(folder);
    progress bar("Extracting", archive.entries.size());
    std::set<std::string> written;
    for (const archive_entry &entry : archive.entries) {
        progress_step(&bar);
        if (!patterns.match(entry.name))
            continue;
        const archive_entry out = outgoing(entry, options.raw);
        if (!written.insert(out.name).second)
            continue; // the first of two equal names is the one that readers find
        const fs::path target = folder / out.name;
        if (!path_lies_in(target.parent_path(), folder)) // a link that was there before
            fail(target.string() + " leads outside the folder");
        fs::create_directories(target.parent_path());
        const std::string_view piece = out.bytes;
        file_write(target, {&piece, 1});
    }
    if (written.empty() && patterns.given())
        fail("no entry matches");
    if (!options.quiet)
        std::printf("%s: %zu files\n", folder.c_str(), written.size());
    return 0;
}
