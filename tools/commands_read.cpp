// commands_read.cpp: the commands that only look: list, check, diff, rules.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "commands_read.h"

#include "check.h"
#include "check_sound.h"
#include "entries.h"
#include "matching.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>

namespace {

using row = std::array<std::string, 4>;
constexpr std::size_t NUMBER_COLUMN = 2; // right-aligned in a list

std::string counted(std::size_t n, const char *word) {
    return std::to_string(n) + " " + word + (n == 1 ? "" : "s");
}

void print_table(const std::vector<row> &rows, bool numbers) {
    row::size_type widths[std::tuple_size_v<row>] = {};
    for (const row &r : rows)
        for (std::size_t c = 0; c < r.size(); ++c)
            widths[c] = std::max(widths[c], r[c].size());
    for (const row &r : rows) {
        for (std::size_t c = 0; c + 1 < r.size(); ++c) {
            const int width = static_cast<int>(widths[c]);
            std::printf("%*s  ", numbers && c == NUMBER_COLUMN ? width : -width, r[c].c_str());
        }
        std::printf("%s\n", r.back().c_str());
    }
}

row describe_picture(const archive_entry &entry) {
    const xpm_reading reading = picture_from_xpm(entry.bytes);
    return {entry.name, "picture", std::to_string(entry.bytes.size()),
            reading.result ? picture_size_text(reading.result->width, reading.result->height) + ", " +
                                 counted(static_cast<std::size_t>(reading.colour_count), "colour")
                           : "unreadable: " + reading.fault};
}

row describe_sound(const archive_entry &entry) {
    const sound_facts facts = sound_measure(entry.bytes);
    char text[64];
    std::snprintf(text, sizeof text, "%i Hz, %s, %.2f s", facts.rate, facts.channels == 1 ? "mono" : "stereo",
                  facts.seconds);
    return {entry.name, "sound", std::to_string(entry.bytes.size()),
            facts.fault.empty() ? text : "unusable: " + facts.fault};
}

row describe(const archive_entry &entry) {
    if (entry.name.ends_with(".xpm"))
        return describe_picture(entry);
    if (entry.name.ends_with(".ogg"))
        return describe_sound(entry);
    const auto lines = static_cast<std::size_t>(std::count(entry.bytes.begin(), entry.bytes.end(), '\n'));
    if (entry.name.ends_with(".txt"))
        return {entry.name, "text", std::to_string(entry.bytes.size()), counted(lines + 1, "line")};
    return {entry.name, "file", std::to_string(entry.bytes.size()), ""};
}

// --- diff ----------------------------------------------------------------------------------------

std::string bytes_difference(const std::string &before, const std::string &after) {
    return std::to_string(before.size()) + " bytes before, " + std::to_string(after.size()) + " now";
}

std::string difference(const std::string &name, const std::string &before, const std::string &after) {
    if (!name.ends_with(".xpm"))
        return bytes_difference(before, after);
    const xpm_reading old_reading = picture_from_xpm(before), new_reading = picture_from_xpm(after);
    if (!old_reading.result || !new_reading.result)
        return bytes_difference(before, after);
    const raster &a = *old_reading.result, &b = *new_reading.result;
    if (a.width != b.width || a.height != b.height)
        return picture_size_text(a.width, a.height) + " before, " + picture_size_text(b.width, b.height) + " now";
    std::size_t changed = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        changed += a.pixels[i] != b.pixels[i] ? 1u : 0u;
    if (changed == 0)
        return "the same picture, written differently";
    return counted(changed, "pixel") + " of " + std::to_string(a.pixels.size()) + " changed";
}

std::map<std::string, std::string> by_name(const std::string &path) {
    std::map<std::string, std::string> entries;
    for (archive_entry &entry : archive_read_sound(path).entries)
        entries.emplace(entry.name, std::move(entry.bytes)); // the first of equal names stays
    return entries;
}

// --- rules ---------------------------------------------------------------------------------------

bool one_rule(const kit_entry &a, const kit_entry &b) {
    const auto folder = [](const std::string &name) { return name.substr(0, name.rfind('/')); };
    return a.role == b.role && size_rule_text(a.size) == size_rule_text(b.size) && folder(a.name) == folder(b.name);
}

row rule_row(const kit_entry &first, const kit_entry &last) {
    constexpr const char *KINDS[] = {"picture", "sound", "text"};
    const std::string range =
        &first == &last ? first.name : first.name + " .. " + last.name.substr(last.name.rfind('/') + 1);
    std::string needed;
    if (first.kind == ENTRY_PICTURE)
        needed = size_rule_text(first.size) + (last.alike.empty() ? "" : ", all alike");
    else if (first.kind == ENTRY_SOUND)
        needed = "Ogg Vorbis, " + std::to_string(KIT_SOUND_RATE) + " Hz";
    else
        needed = "what fits under the board";
    return {range, KINDS[first.kind], needed, first.role};
}

} // namespace

int command_list(const command_arguments &arguments, const command_options &options) {
    const name_patterns patterns(arguments, 1);
    std::vector<row> rows = {{"Name", "Kind", "Bytes", "Details"}};
    std::size_t bytes = 0;
    for (const archive_entry &entry : archive_read_sound(arguments[0]).entries) {
        if (!patterns.match(entry.name))
            continue;
        rows.push_back(describe(entry));
        bytes += entry.bytes.size();
    }
    print_table(rows, true);
    if (!options.quiet)
        std::printf("%zu entries, %zu bytes\n", rows.size() - 1, bytes);
    return 0;
}

int command_check(const command_arguments &arguments, const command_options &options) {
    const std::vector<finding> findings = check_archive(archive_read(arguments[0]));
    for (const finding &f : findings)
        std::printf("%s\n", finding_text(f).c_str());
    if (!findings.empty())
        std::printf("%s: %s\n", arguments[0].c_str(), counted(findings.size(), "fault").c_str());
    else if (!options.quiet)
        std::printf("%s: all %zu entries that the game reads are there and fit\n", arguments[0].c_str(),
                    kit_entries().size());
    return findings.empty() ? 0 : EXIT_FOUND;
}

int command_diff(const command_arguments &arguments, const command_options &) {
    const std::map<std::string, std::string> before = by_name(arguments[0]), after = by_name(arguments[1]);
    bool differ = false;
    const auto report = [&](const char *sign, const std::string &text) {
        std::printf("%s %s\n", sign, text.c_str());
        differ = true;
    };
    for (const auto &[name, bytes] : before) {
        const auto found = after.find(name);
        if (found == after.end())
            report("-", name);
        else if (found->second != bytes)
            report("~", name + ": " + difference(name, bytes, found->second));
    }
    for (const auto &[name, bytes] : after)
        if (!before.contains(name))
            report("+", name);
    return differ ? EXIT_FOUND : 0;
}

int command_rules(const command_arguments &arguments, const command_options &) {
    const name_patterns patterns(arguments, 0);
    const std::vector<kit_entry> &entries = kit_entries();
    std::vector<row> rows = {{"Name", "Kind", "Needed", "Role"}};
    for (std::size_t i = 0; i < entries.size();) {
        std::size_t last = i;
        while (last + 1 < entries.size() && one_rule(entries[i], entries[last + 1]))
            ++last;
        if (patterns.match(entries[i].name))
            rows.push_back(rule_row(entries[i], entries[last]));
        i = last + 1;
    }
    print_table(rows, false);
    return 0;
}
