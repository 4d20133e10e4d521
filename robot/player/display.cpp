// display.cpp: the connection to an X server.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "display.h"
#include "process.h"
#include "robot.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <cairo-xlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

static constexpr unsigned LEFT_BUTTON = 1;

static rect whole, shown_in; // the display, and where the game's picture is on it
static Display *connection;
static cairo_surface_t *screen;  // all that the display shows
static cairo_surface_t *grabbed; // in the game's pixels

// The server picks a free display number and writes it to the pipe.
static std::string start_server(int width, int height, bool remote) {
    int ends[2];
    robot_expect(pipe(ends) == 0, "a pipe can be made");
    const std::string size = std::to_string(width) + "x" + std::to_string(height), number_to = std::to_string(ends[1]);
    const pid_t server = remote ? process_start({"Xvnc", "-displayfd", number_to, "-geometry", size, "-depth", "24",
                                                 "-SecurityTypes", "None", "-localhost", "-noreset"})
                                : process_start({"Xvfb", "-displayfd", number_to, "-screen", "0", size + "x24",
                                                 "-nolisten", "tcp", "-noreset"});
    close(ends[1]);
    robot_at_end([server](bool) { process_stop(server); });
    std::string number;
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
        number += c;
    close(ends[0]);
    robot_expect(!number.empty(), "the X server starts");
    return ":" + number;
}

void display_open() {
    connection = XOpenDisplay(nullptr);
    robot_expect(connection != nullptr, "the display can be opened");
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; }); // windows come and go while they are looked at
    const int number = DefaultScreen(connection);
    whole = shown_in = {0, 0, DisplayWidth(connection, number), DisplayHeight(connection, number)};
    int unused = 0;
    robot_expect(XTestQueryExtension(connection, &unused, &unused, &unused, &unused) != 0, "the display has XTEST");
    screen = cairo_xlib_surface_create(connection, DefaultRootWindow(connection), DefaultVisual(connection, number),
                                       whole.w, whole.h);
    grabbed = cairo_image_surface_create(CAIRO_FORMAT_RGB24, SCREEN_WIDTH, SCREEN_HEIGHT);
}

void display_start(int width, int height, bool remote) {
    setenv("DISPLAY", start_server(width, height, remote).c_str(), 1);
    display_open();
    XChangePointerControl(connection, True, True, 1, 1, 0); // no acceleration
}

static void add_frames(Window window, std::vector<rect> &frames) {
    XWindowAttributes is = {};
    Window root = None, parent = None, *children = nullptr;
    unsigned count = 0;
    if (XGetWindowAttributes(connection, window, &is) == 0 || is.map_state != IsViewable || is.width < SCREEN_WIDTH ||
        is.height < SCREEN_HEIGHT)
        return;
    int x = 0, y = 0;
    XTranslateCoordinates(connection, window, DefaultRootWindow(connection), 0, 0, &x, &y, &root);
    const int width = std::min(is.width, is.height * SCREEN_WIDTH / SCREEN_HEIGHT);
    const int height = std::min(is.height, is.width * SCREEN_HEIGHT / SCREEN_WIDTH);
    const rect frame = {x + (is.width - width) / 2, y + (is.height - height) / 2, width, height};
    if (frame.x >= 0 && frame.y >= 0 && frame.x + width <= whole.w && frame.y + height <= whole.h)
        frames.push_back(frame);
    if (XQueryTree(connection, window, &root, &parent, &children, &count) == 0)
        return;
    for (unsigned i = 0; i < count; ++i)
        add_frames(children[i], frames);
    if (children != nullptr)
        XFree(children);
}

std::vector<rect> display_frames() {
    std::vector<rect> frames;
    add_frames(DefaultRootWindow(connection), frames);
    return frames;
}

void display_set_frame(const rect &frame) {
    shown_in = frame;
}

std::span<const std::uint32_t> display_grab() {
    cairo_surface_mark_dirty(screen);
    cairo_t *painter = cairo_create(grabbed);
    cairo_scale(painter, 1.0 * SCREEN_WIDTH / shown_in.w, 1.0 * SCREEN_HEIGHT / shown_in.h);
    cairo_set_source_surface(painter, screen, -shown_in.x, -shown_in.y);
    cairo_pattern_set_filter(cairo_get_source(painter), CAIRO_FILTER_NEAREST);
    cairo_paint(painter);
    cairo_destroy(painter);
    cairo_surface_flush(grabbed);
    const auto *pixels = reinterpret_cast<const std::uint32_t *>(cairo_image_surface_get_data(grabbed));
    return {pixels, static_cast<std::size_t>(SCREEN_WIDTH * SCREEN_HEIGHT)};
}

void display_save(const std::string &path) {
    robot_expect(cairo_surface_write_to_png(grabbed, path.c_str()) == CAIRO_STATUS_SUCCESS,
                 "the picture " + path + " can be written");
}

// To the middle of the game's pixel.
void display_move_pointer(point to) {
    XTestFakeMotionEvent(connection, -1, shown_in.x + (2 * to.x + 1) * shown_in.w / (2 * SCREEN_WIDTH),
                         shown_in.y + (2 * to.y + 1) * shown_in.h / (2 * SCREEN_HEIGHT), CurrentTime);
    XFlush(connection);
}

void display_touch_corners() {
    constexpr useconds_t STAY = 100'000; // long enough for several frames
    for (const point corner : {point{0, 0}, {whole.w - 1, 0}, {whole.w - 1, whole.h - 1}, {0, whole.h - 1}, {0, 0}}) {
        XTestFakeMotionEvent(connection, -1, corner.x, corner.y, CurrentTime);
        XFlush(connection);
        usleep(STAY);
    }
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
