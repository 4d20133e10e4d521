// display.cpp: the virtual display.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "display.h"
#include "robot.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/XTest.h>

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/prctl.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

static constexpr unsigned LEFT_BUTTON = 1;
static constexpr int PRIVATE = 0600;
static constexpr int NOT_STARTED = 127;
static constexpr std::chrono::milliseconds START_PATIENCE{10000}, STOP_PATIENCE{2000}, POLL{10};

static display_options chosen;
static area shown_in; // where the game's picture is
static Display *connection;
static XImage *screen_image;
static XShmSegmentInfo segment;

pid_t process_start(const std::vector<std::string> &words, const char *output, const std::string &folder) {
    std::vector<char *> arguments;
    for (const std::string &word : words)
        arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t id = fork();
    robot_expect(id >= 0, "a process can be started");
    if (id > 0)
        return id;
    prctl(PR_SET_PDEATHSIG, SIGKILL); // nothing outlives a robot that is killed
    const int out = open(output != nullptr ? output : "/dev/null", O_WRONLY | O_CREAT | O_APPEND, PRIVATE);
    dup2(out, STDOUT_FILENO);
    dup2(out, STDERR_FILENO);
    if (folder.empty() || chdir(folder.c_str()) == 0)
        execvp(arguments[0], arguments.data());
    _exit(NOT_STARTED);
}

void process_stop(pid_t id) {
    kill(id, SIGTERM);
    for (auto waited = POLL; waited < STOP_PATIENCE; waited += POLL) {
        if (waitpid(id, nullptr, WNOHANG) != 0)
            return;
        std::this_thread::sleep_for(POLL);
    }
    kill(id, SIGKILL);
    waitpid(id, nullptr, 0);
}

// The server picks a free display number and writes it to the pipe.
static std::string start_server() {
    int ends[2];
    robot_expect(pipe(ends) == 0, "a pipe can be made");
    const std::string screen = std::to_string(chosen.width) + "x" + std::to_string(chosen.height) + "x24";
    const pid_t server = process_start(
        {"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", screen, "-nolisten", "tcp", "-noreset"},
        nullptr, "");
    close(ends[1]);
    robot_at_end([server] { process_stop(server); });
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
                                   static_cast<unsigned>(chosen.width), static_cast<unsigned>(chosen.height));
    robot_expect(screen_image != nullptr && screen_image->bits_per_pixel == 32, "the display has 32 bits a pixel");
    const auto size = static_cast<std::size_t>(screen_image->bytes_per_line * screen_image->height);
    segment.shmid = shmget(IPC_PRIVATE, size, IPC_CREAT | PRIVATE);
    segment.shmaddr = screen_image->data = static_cast<char *>(shmat(segment.shmid, nullptr, 0));
    robot_expect(XShmAttach(connection, &segment) != 0, "the display shares its pixels");
    XSync(connection, False);
    shmctl(segment.shmid, IPC_RMID, nullptr); // it lives until both have let go
}

// A window manager says on the root window that it is there.
static bool manager_ready() {
    const Atom check = XInternAtom(connection, "_NET_SUPPORTING_WM_CHECK", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char *value = nullptr;
    XGetWindowProperty(connection, DefaultRootWindow(connection), check, 0, 1, False, AnyPropertyType, &type, &format,
                       &count, &rest, &value);
    if (value != nullptr)
        XFree(value);
    return type != None;
}

static void wait_for_manager() {
    for (auto waited = POLL; !manager_ready(); waited += POLL) {
        robot_expect(waited < START_PATIENCE, "the window manager starts");
        std::this_thread::sleep_for(POLL);
    }
}

void display_start(const display_options &options) {
    chosen = options;
    if (!options.visitors)
        setenv("DISPLAY", start_server().c_str(), 1);
    connection = XOpenDisplay(nullptr);
    robot_expect(connection != nullptr, "the display can be opened");
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; }); // windows come and go while they are looked at
    chosen.width = DisplayWidth(connection, DefaultScreen(connection));
    chosen.height = DisplayHeight(connection, DefaultScreen(connection));
    shown_in = {0, 0, chosen.width, chosen.height};
    int unused = 0;
    robot_expect(XTestQueryExtension(connection, &unused, &unused, &unused, &unused) != 0, "the display has XTEST");
    if (!options.visitors)
        XChangePointerControl(connection, True, True, 1, 1, 0); // no acceleration
    share_screen();
    if (options.window_manager) {
        const pid_t manager = process_start({"openbox"}, nullptr, "");
        robot_at_end([manager] { process_stop(manager); });
        wait_for_manager();
    }
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
    if (frame.x >= 0 && frame.y >= 0 && frame.x + width <= chosen.width && frame.y + height <= chosen.height)
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
