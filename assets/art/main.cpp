// tavimo-art DIR SET...: draws picture sets into DIR/xpm/. Without a set it lists them.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/base/puzzle_info.h"
#include "fail.h"
#include "save.h"
#include "sets.h"

#include <cstdio>
#include <string_view>

namespace {

struct named_set {
    const char *name;
    void (*make)();
};

constexpr named_set SETS[] = {
    {"font", art::make_font},       {"background", art::make_background}, {"title", art::make_title},
    {"splash", art::make_splash},   {"dialog", art::make_dialog},         {"study", art::make_study},
    {"score", art::make_score},     {"credits", art::make_credits},       {"cursors", art::make_cursors},
    {"effects", art::make_effects},
};

// Draws the set called `name` ("title", or "puzzle0" .. "puzzle10"); false when there is none.
bool make_set(std::string_view name) {
    for (const named_set &set : SETS) {
        if (name == set.name) {
            set.make();
            return true;
        }
    }
    for (int type = 0; type < PUZZLE_COUNT; ++type) {
        if (name == "puzzle" + std::to_string(type)) {
            art::make_puzzle(type);
            return true;
        }
    }
    return false;
}

int run(int argc, char **argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: tavimo-art DIR SET...\nsets:");
        for (const named_set &set : SETS)
            std::fprintf(stderr, " %s", set.name);
        std::fprintf(stderr, " puzzle0 .. puzzle10\n");
        return 2;
    }
    art::set_output(argv[1]);
    for (int i = 2; i < argc; ++i)
        if (!make_set(argv[i]))
            fail("there is no set '" + std::string(argv[i]) + "'");
    return 0;
}

} // namespace

int main(int argc, char **argv) {
    return exit_code_of("tavimo-art", [=] { return run(argc, argv); });
}
