// display.cpp: the connection to an X server.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "display.h"
#include "process.h"
#include "robot.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/XTest.h>

#include <sys/ipc.h>
#include <sys/shm.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

static constexpr unsigned LEFT_BUTTON = 1;
static constexpr int PRIVATE = 0600;

static area whole, shown_in; // the display, and where the game's picture is on it
static Display *connection;
static XImage *screen_image;
static XShmSegmentInfo segment;

// The server picks a free display number and writes it to the pipe.
static std::string start_server(int width, int height) {
    int ends[2];
    robot_expect(pipe(ends) == 0, "a pipe can be made");
    const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
    const pid_t server = process_start(
        {"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", screen, "-nolisten", "tcp", "-noreset"});
    close(ends[1]);
    robot_at_end([server](bool) { process_stop(server); });
    std::string number;
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
        number += c;
    close(ends[0]);
    robot_expect(!number.empty(), "Xvfb starts");
    return ":" + number;
}

static void share_screen() {
    const int screen = DefaultScreen(connection);
    screen_image = XShmCreateImage(connection, DefaultVisual(connection, screen), 24, ZPixmap, nullptr, &segment,
                                   static_cast<unsigned>(whole.w), static_cast<unsigned>(whole.h));
    robot_expect(screen_image != nullptr && screen_image->bits_per_pixel == 32, "the display has 32 bits a pixel");
    const auto size = static_cast<std::size_t>(screen_image->bytes_per_line * screen_image->height);
    segment.shmid = shmget(IPC_PRIVATE, size, IPC_CREAT | PRIVATE);
    segment.shmaddr = screen_image->data = static_cast<char *>(shmat(segment.shmid, nullptr, 0));
    robot_expect(XShmAttach(connection, &segment) != 0, "the display shares its pixels");
    XSync(connection, False);
    shmctl(segment.shmid, IPC_RMID, nullptr); // it lives until both have let go
}

void display_open() {
    connection = XOpenDisplay(nullptr);
    robot_expect(connection != nullptr, "the display can be opened");
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; }); // windows come and go while they are looked at
    const int screen = DefaultScreen(connection);
    whole = shown_in = {0, 0, DisplayWidth(connection, screen), DisplayHeight(connection, screen)};
    int unused = 0;
    robot_expect(XTestQueryExtension(connection, &unused, &unused, &unused, &unused) != 0, "the display has XTEST");
    share_screen();
}

void display_start(int width, int height) {
    setenv("DISPLAY", start_server(width, height).c_str(), 1);
    display_open();
    XChangePointerControl(connection, True, True, 1, 1, 0); // no acceleration
}

static void add_frames(Window window, std::vector<area> &frames) {
    XWindowAttributes is = {};
    Window root = None, parent = None, *children = nullptr;
    unsigned count = 0;
    if (XGetWindowAttributes(connection, window, &is) == 0 || is.map_state != IsViewable || is.width < WINDOW_WIDTH ||
        is.height < WINDOW_HEIGHT)
        return;
    int x = 0, y = 0;
    XTranslateCoordinates(connection, window, DefaultRootWindow(connection), 0, 0, &x, &y, &root);
    const int width = std::min(is.width, is.height * WINDOW_WIDTH / WINDOW_HEIGHT);
    const int height = std::min(is.height, is.width * WINDOW_HEIGHT / WINDOW_WIDTH);
    const area frame = {x + (is.width - width) / 2, y + (is.height - height) / 2, width, height};
    if (frame.x >= 0 && frame.y >= 0 && frame.x + width <= whole.w && frame.y + height <= whole.h)
        frames.push_back(frame);
    if (XQueryTree(connection, window, &root, &parent, &children, &count) == 0)
        return;
    for (unsigned i = 0; i < count; ++i)
        add_frames(children[i], frames);
    if (children != nullptr)
        XFree(children);
}

std::vector<area> display_frames() {
    std::vector<area> frames;
    add_frames(DefaultRootWindow(connection), frames);
    return frames;
}

void display_set_frame(const area &frame) {
    shown_in = frame;
}

// The display's pixel in the middle of the game's.
static int display_x(int x) {
    return shown_in.x + (2 * x + 1) * shown_in.w / (2 * WINDOW_WIDTH);
}
static int display_y(int y) {
    return shown_in.y + (2 * y + 1) * shown_in.h / (2 * WINDOW_HEIGHT);
}

void display_grab(view *into) {
    XShmGetImage(connection, DefaultRootWindow(connection), screen_image, 0, 0, AllPlanes);
    std::array<int, WINDOW_WIDTH> columns; // looked at hundreds of times a second: no division for each pixel
    for (int x = 0; x < WINDOW_WIDTH; ++x)
        columns[static_cast<std::size_t>(x)] = display_x(x);
    std::uint32_t *shown = into->shown.data();
    for (int y = 0; y < WINDOW_HEIGHT; ++y) {
        const auto *row =
            reinterpret_cast<const std::uint32_t *>(screen_image->data + display_y(y) * screen_image->bytes_per_line);
        for (const int column : columns)
            *shown++ = row[column] & 0xFFFFFFU;
    }
    std::transform(into->shown.begin(), into->shown.end(), into->pixels.begin(), [](std::uint32_t c) {
        return static_cast<color565>((c >> 8 & 0xF800) | (c >> 5 & 0x07E0) | (c >> 3 & 0x001F));
    });
}

void display_move_pointer(point to) {
    XTestFakeMotionEvent(connection, -1, display_x(to.x), display_y(to.y), CurrentTime);
    XFlush(connection);
}

void display_push_pointer(point by) {
    XTestFakeRelativeMotionEvent(connection, by.x * shown_in.w / WINDOW_WIDTH, by.y * shown_in.h / WINDOW_HEIGHT,
                                 CurrentTime);
    XFlush(connection);
}

void display_button(bool down) {
    XTestFakeButtonEvent(connection, LEFT_BUTTON, down ? True : False, CurrentTime);
    XFlush(connection);
}

void display_key(unsigned long keysym, bool down) {
    const KeyCode code = XKeysymToKeycode(connection, keysym);
    robot_expect(code != 0, "the keyboard has the key " + std::to_string(keysym));
    XTestFakeKeyEvent(connection, code, down ? True : False, CurrentTime);
    XFlush(connection);
}
