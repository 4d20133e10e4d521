// refuse_16_bits.cpp: a library that is loaded before SDL and refuses 16-bit screens, so that the game has to take
// its other colour depth.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include <dlfcn.h>

extern "C" void *SDL_SetVideoMode(int width, int height, int bits, unsigned flags);

extern "C" void *SDL_SetVideoMode(int width, int height, int bits, unsigned flags) {
    static constexpr int REFUSED = 16;
    using set_mode = void *(*)(int, int, int, unsigned);
    static const auto real = reinterpret_cast<set_mode>(dlsym(RTLD_NEXT, "SDL_SetVideoMode"));
    return bits == REFUSED ? nullptr : real(width, height, bits, flags);
}
