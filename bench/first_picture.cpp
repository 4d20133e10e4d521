// first_picture.cpp: starts a program and prints the milliseconds until its first picture stands on the screen.
// usage: tavimo-first-picture PID-FILE PROGRAM [ARGUMENT ...]
//
// A picture is there when part of a grid of points over the root window is lit. The program goes on; its process id
// is written to the file.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace std::chrono_literals;
using steady = std::chrono::steady_clock;

static constexpr int STEP = 8;                 // pixels between the points
static constexpr unsigned long LIT = 0x404040; // bits of which a lit point has some
static constexpr int LIT_PART = 50;            // one point in so many
static constexpr auto PATIENCE = 60s;          // some set up their files when they start for the first time
static constexpr auto PAUSE = 1ms;

static bool picture_stands(Display *display) {
    const Window root = DefaultRootWindow(display);
    const unsigned width = static_cast<unsigned>(DisplayWidth(display, 0));
    const unsigned height = static_cast<unsigned>(DisplayHeight(display, 0));
    int points = 0, lit = 0;
    XImage *screen = XGetImage(display, root, 0, 0, width, height, AllPlanes, ZPixmap);
    for (int y = 0; y < static_cast<int>(height); y += STEP)
        for (int x = 0; x < static_cast<int>(width); x += STEP, ++points)
            lit += (XGetPixel(screen, x, y) & LIT) != 0 ? 1 : 0;
    XDestroyImage(screen);
    return lit * LIT_PART > points;
}

int main(int count, char **arguments) {
    Display *display = XOpenDisplay(nullptr);
    if (count < 3 || display == nullptr) {
        std::fprintf(stderr, "usage: tavimo-first-picture PID-FILE PROGRAM [ARGUMENT ...], with a display\n");
        return EXIT_FAILURE;
    }
    const auto start = steady::now();
    const pid_t child = fork();
    if (child == 0) {
        // Whoever reads the milliseconds must not wait for the program's end.
        if (std::freopen("/dev/null", "w", stdout) == nullptr)
            _exit(EXIT_FAILURE);
        execvp(arguments[2], arguments + 2);
        _exit(EXIT_FAILURE);
    }
    if (std::FILE *file = std::fopen(arguments[1], "w")) {
        std::fprintf(file, "%d\n", static_cast<int>(child));
        std::fclose(file);
    }
    while (!picture_stands(display) && steady::now() - start < PATIENCE)
        std::this_thread::sleep_for(PAUSE);
    std::printf("%.0f\n", std::chrono::duration<double, std::milli>(steady::now() - start).count());
    XCloseDisplay(display);
    return EXIT_SUCCESS;
}
