// main.cpp: the program's entry. SDL's headers may rename main, so that SDL's own start-up runs first.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "core/app/app.h"

#include <SDL.h>

int main(int, char **) {
    app_run();
}
