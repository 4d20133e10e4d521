// check.cpp: the walk over the table, and pictures.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "check.h"

#include "check_sound.h"
#include "check_text.h"
#include "entries.h"
#include "progress.h"

#include <set>

namespace {

// What belongs where an entry is missing.
std::string description(const kit_entry &entry) {
    constexpr const char *KINDS[] = {"a picture", "a sound", "a text"};
    std::string text = KINDS[entry.kind];
    if (entry.series > 1)
        text += ", one of the " + std::to_string(entry.series) + " in its folder";
    if (entry.kind == ENTRY_PICTURE)
        text += ", " + size_rule_text(entry.size);
    return text + ": " + entry.role;
}

void check_picture(const kit_entry &entry, const archive_file &archive, std::vector<finding> *findings) {
    const xpm_reading reading = archive_picture(archive, entry.name);
    if (!reading.result) {
        findings->push_back({entry.name, "a picture that the game cannot read: " + reading.fault,
                             "an XPM picture, " + size_rule_text(entry.size)});
        return;
    }
    const raster &p = *reading.result;
    const std::string size = picture_size_text(p.width, p.height);
    if (!size_fits(entry.size, p.width, p.height)) {
        findings->push_back({entry.name, size, size_rule_text(entry.size) + ": " + entry.role});
    } else if (!entry.alike.empty()) {
        const xpm_reading model = archive_picture(archive, entry.alike);
        if (model.result && (model.result->width != p.width || model.result->height != p.height))
            findings->push_back(
                {entry.name, size,
                 picture_size_text(model.result->width, model.result->height) + ", the size of " + entry.alike});
    }
    const std::string accident = picture_accident(p, p);
    if (!accident.empty())
        findings->push_back({entry.name, "a visible pixel that turns transparent on 16-bit screens: " + accident,
                             "another colour, or #EA008A itself for transparent"});
}

void check_entry(const kit_entry &entry, const archive_file &archive, std::vector<finding> *findings) {
    const archive_entry *stored = archive_find(archive, entry.name);
    if (stored == nullptr) {
        findings->push_back({entry.name, "nothing", description(entry)});
        return;
    }
    switch (entry.kind) {
    case ENTRY_PICTURE:
        check_picture(entry, archive, findings);
        break;
    case ENTRY_SOUND:
        check_sound(entry, stored->bytes, findings);
        break;
    case ENTRY_TEXT:
        check_text(entry, archive, findings);
        break;
    }
}

// The series that a superfluous picture stands behind, as a hint; empty for none.
std::string series_hint(const std::string &name) {
    const std::size_t slash = name.rfind('/');
    const kit_entry *first = slash != std::string::npos ? kit_find(name.substr(0, slash) + "/001.xpm") : nullptr;
    if (first == nullptr)
        return {};
    return "; the series in this folder has " + std::to_string(first->series) + " pictures";
}

void check_names(const archive_file &archive, std::vector<finding> *findings) {
    std::set<std::string> seen;
    for (const archive_entry &entry : archive.entries) {
        if (!seen.insert(entry.name).second)
            findings->push_back({entry.name, "a second entry of this name", "one; the game reads the first"});
        else if (kit_find(entry.name) == nullptr)
            findings->push_back({entry.name, "an entry of " + std::to_string(entry.bytes.size()) + " bytes",
                                 "none: the game never asks for this name" + series_hint(entry.name)});
    }
}

} // namespace

std::string finding_text(const finding &f) {
    return f.name + ": found " + f.found + "; needed " + f.needed;
}

xpm_reading archive_picture(const archive_file &archive, const std::string &name) {
    const archive_entry *stored = archive_find(archive, name);
    return stored != nullptr ? picture_from_xpm(stored->bytes) : xpm_reading{{}, 0, "missing"};
}

std::vector<finding> check_archive(const archive_file &archive) {
    std::vector<finding> findings;
    std::set<std::string> damaged;
    for (const archive_damage &damage : archive.damage) {
        findings.push_back({damage.where, "damage: it " + damage.what, "a whole archive"});
        damaged.insert(damage.where);
    }
    check_font(archive, &findings);
    progress bar("Checking", kit_entries().size());
    for (const kit_entry &entry : kit_entries()) {
        if (!damaged.contains(entry.name))
            check_entry(entry, archive, &findings);
        progress_step(&bar);
    }
    check_names(archive, &findings);
    return findings;
}
