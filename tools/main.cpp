// main.cpp: the archive tool's command line.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "commands_read.h"
#include "commands_write.h"
#include "fail.h"
#include "progress.h"

#include <cstdio>
#include <getopt.h>
#include <string_view>

namespace {

constexpr char HELP[] = R"(Usage: tavimo-archive COMMAND [OPTION]... ARGUMENT...
Packs, shows, changes and checks the game's archive of pictures, sounds and texts.

Commands:
  pack FOLDER ARCHIVE            write every file below FOLDER into ARCHIVE, PNG pictures as XPM
  list ARCHIVE [PATTERN]...      print a table of the entries: name, kind, bytes, details
  extract ARCHIVE FOLDER [PATTERN]...
                                 write the entries into FOLDER, pictures as PNG
  replace ARCHIVE NAME FILE [NAME FILE]...
  replace ARCHIVE FOLDER         put files in place of entries; PNG pictures as XPM. Refused, with the
                                 archive left as it is, when check would find a fault that was not there
  check ARCHIVE                  report everything that the game would miss or could not use
  diff OLD NEW                   report the entries in which two archives differ
  rules [PATTERN]...             print what the game reads: names, sizes and roles

Options:
  -o, --output=FILE   replace: write the result to FILE instead of ARCHIVE
  -r, --raw           extract: pictures as they are stored, as XPM
  -q, --quiet         no progress and no closing line
  -h, --help          print this text
  -V, --version       print the version

A PATTERN is a name in which * and ? stand for any characters; quote it, such as 'xpm/title/*'.
Exit codes: 0 done; 1 failed, or faults or differences were found; 2 wrong usage.
)";

constexpr std::size_t MANY = 1'000'000;

struct command_row {
    std::string_view name;
    std::size_t least, most; // arguments
    int (*run)(const command_arguments &arguments, const command_options &options);
};
// clang-format off
constexpr command_row COMMANDS[] = {
    {"pack",    2, 2,    command_pack},
    {"list",    1, MANY, command_list},
    {"extract", 2, MANY, command_extract},
    {"replace", 2, MANY, command_replace},
    {"check",   1, 1,    command_check},
    {"diff",    2, 2,    command_diff},
    {"rules",   0, MANY, command_rules},
};
constexpr option LONG_OPTIONS[] = {
    {"output",  required_argument, nullptr, 'o'},
    {"raw",     no_argument,       nullptr, 'r'},
    {"quiet",   no_argument,       nullptr, 'q'},
    {"help",    no_argument,       nullptr, 'h'},
    {"version", no_argument,       nullptr, 'V'},
    {nullptr,   0,                 nullptr, 0},
};
// clang-format on

int wrong_usage(const char *why) {
    if (why != nullptr)
        std::fprintf(stderr, "tavimo-archive: %s\n", why);
    std::fprintf(stderr, "Try 'tavimo-archive --help' for more information.\n");
    return EXIT_USAGE;
}

int run_command(const command_arguments &words, const command_options &options) {
    if (words.empty())
        return wrong_usage("no command");
    const command_arguments arguments(words.begin() + 1, words.end());
    for (const command_row &row : COMMANDS) {
        if (row.name != words[0])
            continue;
        if (arguments.size() < row.least || arguments.size() > row.most)
            return wrong_usage(("wrong number of arguments for " + words[0]).c_str());
        return row.run(arguments, options);
    }
    return wrong_usage(("no command is called " + words[0]).c_str());
}

int run(int argc, char **argv) {
    command_options options;
    for (int c = 0; (c = getopt_long(argc, argv, "o:rqhV", LONG_OPTIONS, nullptr)) != -1;) {
        switch (c) {
        case 'o':
            options.output = optarg;
            break;
        case 'r':
            options.raw = true;
            break;
        case 'q':
            options.quiet = true;
            progress_wanted = false;
            break;
        case 'h':
            std::fputs(HELP, stdout);
            return 0;
        case 'V':
            std::puts("tavimo-archive " TAVIMO_VERSION);
            return 0;
        default:
            return wrong_usage(nullptr);
        }
    }
    return run_command({argv + optind, argv + argc}, options);
}

} // namespace

int main(int argc, char **argv) {
    return exit_code_of("tavimo-archive", [=] { return run(argc, argv); });
}
