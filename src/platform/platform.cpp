// platform.cpp: the system calls of a POSIX host.
//
// Files are opened to be closed on exec; what libraries or the program's starter left open is closed before a browser
// is started.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "platform/platform.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

static constexpr mode_t NEW_FILE_MODE = 0666;     // less the umask
static constexpr mode_t ALL_PERMISSIONS = 07777;  // of a file's mode
static constexpr std::size_t COPY_CHUNK = 16384;  // bytes
static constexpr char NEW_FILE_SUFFIX[] = ".new"; // of the file that takes an old one's place
static constexpr int EXIT_NOT_FOUND = 127;        // what a shell would say
static constexpr unsigned NO_LAST_DESCRIPTOR = ~0U;

// What a desktop may provide for opening a page, the best first. A null argument is left out.
static constexpr struct {
    const char *program, *argument;
} OPENERS[] = {
    {"xdg-open", nullptr},      {"gio", "open"},          {"kde-open", nullptr}, {"exo-open", nullptr},
    {"x-www-browser", nullptr}, {"www-browser", nullptr},
};

static bool to_host_path(char (&host)[PATH_MAX], const char *path) {
    std::size_t length = 0;
    for (; path[length] != '\0'; ++length) {
        if (length + 1 == sizeof host) {
            errno = ENAMETOOLONG;
            return false;
        }
        host[length] = path[length] == '\\' ? '/' : path[length];
    }
    host[length] = '\0';
    return true;
}

static int open_host_path(const char *path, int flags) {
    char host[PATH_MAX];
    return to_host_path(host, path) ? open(host, flags | O_CLOEXEC, NEW_FILE_MODE) : -1;
}

int platform_open_read(const char *path) {
    return open_host_path(path, O_RDONLY);
}

int platform_open_write(const char *path) {
    return open_host_path(path, O_WRONLY | O_CREAT);
}

// Repeats one system call until everything is through, it delivers nothing, or it fails.
template <class Byte, class Call> static std::ptrdiff_t transfer(Call call, int fd, Byte *bytes, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t n = call(fd, bytes + done, count - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return -1;
        if (n == 0)
            break;
        done += static_cast<std::size_t>(n);
    }
    return static_cast<std::ptrdiff_t>(done);
}

std::ptrdiff_t platform_read(int fd, void *bytes, std::size_t count) {
    return transfer(read, fd, static_cast<unsigned char *>(bytes), count);
}

std::ptrdiff_t platform_write(int fd, const void *bytes, std::size_t count) {
    return transfer(write, fd, static_cast<const unsigned char *>(bytes), count);
}

int platform_seek(int fd, int offset) {
    return static_cast<int>(lseek(fd, offset, SEEK_SET));
}

int platform_size(int fd) {
    struct stat status = {};
    if (fstat(fd, &status) != 0)
        return -1;
    return static_cast<int>(std::min<off_t>(status.st_size, std::numeric_limits<int>::max()));
}

void platform_close(int fd) {
    close(fd);
}

static bool write_all(int fd, const void *bytes, std::size_t count) {
    return platform_write(fd, bytes, count) == static_cast<std::ptrdiff_t>(count);
}

static int copy_descriptor(int from, int to) {
    unsigned char chunk[COPY_CHUNK];
    for (;;) {
        const std::ptrdiff_t n = platform_read(from, chunk, sizeof chunk);
        if (n < 0)
            return -1;
        if (n == 0)
            return fsync(to);
        if (!write_all(to, chunk, static_cast<std::size_t>(n)))
            return -1;
    }
}

// A save must not make a private file public. Where the file system knows no permissions there are none to lose.
static void take_permissions(int fresh, int old) {
    struct stat status = {};
    if (fstat(old, &status) == 0)
        static_cast<void>(fchmod(fresh, status.st_mode & ALL_PERMISSIONS));
}

// The bytes, and behind them what of the old file is longer; safe on the disk when true.
static bool write_new_file(int fresh, const char *old_path, const void *bytes, std::size_t count) {
    const int old = open(old_path, O_RDONLY | O_CLOEXEC);
    if (old < 0)
        return false;
    take_permissions(fresh, old);
    const bool written = write_all(fresh, bytes, count) && lseek(old, static_cast<off_t>(count), SEEK_SET) >= 0 &&
                         copy_descriptor(old, fresh) == 0;
    platform_close(old);
    return written;
}

// Even one write can be cut short, by a full disk or by the end of the process.
int platform_overwrite(int fd, const char *path, const void *bytes, std::size_t count) {
    char host[PATH_MAX], target[PATH_MAX], beside[PATH_MAX + sizeof NEW_FILE_SUFFIX];
    if (!to_host_path(host, path) || realpath(host, target) == nullptr)
        return -1;
    std::snprintf(beside, sizeof beside, "%s%s", target, NEW_FILE_SUFFIX);
    const int fresh = open(beside, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, NEW_FILE_MODE);
    if (fresh < 0)
        return write_all(fd, bytes, count) ? 0 : -1;
    bool replaced = write_new_file(fresh, target, bytes, count);
    platform_close(fresh);
    replaced = replaced && rename(beside, target) == 0;
    const int reason = errno;
    if (!replaced)
        unlink(beside);
    errno = reason;
    return replaced ? 0 : -1;
}

int platform_copy_file(const char *from, const char *to) {
    const int source = platform_open_read(from);
    if (source < 0)
        return -1;
    const int target = open_host_path(to, O_WRONLY | O_CREAT | O_TRUNC);
    int result = -1;
    if (target >= 0) {
        result = copy_descriptor(source, target);
        platform_close(target);
    }
    platform_close(source);
    return result;
}

// The lock is the system's, on the folder itself: it goes with the process and leaves no file behind.
bool platform_claim_folder(const char *path) {
    static int claimed = -1;
    if (claimed >= 0)
        close(claimed);
    claimed = open_host_path(path, O_RDONLY | O_DIRECTORY);
    return claimed < 0 || flock(claimed, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

int platform_process_id() {
    return static_cast<int>(getpid());
}

// In the grandchild: nothing but calls that are safe between fork and exec. Each opener that is not there makes way
// for the next. The browser outlives the game, so it must not hold on to the game's folder or files.
[[noreturn]] static void exec_browser(const char *address) {
    const int nowhere = open("/dev/null", O_RDWR);
    if (nowhere >= 0) {
        dup2(nowhere, STDIN_FILENO);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
    }
    close_range(STDERR_FILENO + 1, NO_LAST_DESCRIPTOR, 0);
    if (chdir("/") != 0)
        _exit(EXIT_NOT_FOUND);
    for (const auto &opener : OPENERS) {
        const char *first = opener.argument != nullptr ? opener.argument : address;
        const char *second = opener.argument != nullptr ? address : nullptr;
        execlp(opener.program, opener.program, first, second, static_cast<char *>(nullptr));
    }
    _exit(EXIT_NOT_FOUND);
}

// Forked twice: the middle process ends at once and is collected here, the browser's starter is adopted by
// the system, so neither a zombie nor a wait is left over. A new session keeps the terminal's signals away.
void platform_open_web_page(const char *address) {
    const pid_t middle = fork();
    if (middle == 0) {
        setsid();
        if (fork() == 0)
            exec_browser(address);
        _exit(0);
    }
    if (middle > 0)
        while (waitpid(middle, nullptr, 0) < 0 && errno == EINTR)
            continue;
}

// A session that ends sends SIGHUP, alone or right behind SIGTERM; SDL knows the latter only.
static void hang_up(int /*signal*/) {
    std::raise(SIGTERM);
}

void platform_join_desktop() {
    constexpr int KEEP = 0;
    setenv("SDL_VIDEO_X11_WMCLASS", "tavimo", KEEP);
    setenv("SDL_VIDEO_WAYLAND_WMCLASS", "tavimo", KEEP);
    setenv("SDL_VIDEO_ALLOW_SCREENSAVER", "1", KEEP);
    setenv("SDL_MOUSE_RELATIVE", "0", KEEP);
    struct sigaction present = {};
    if (sigaction(SIGHUP, nullptr, &present) == 0 && present.sa_handler == SIG_DFL)
        std::signal(SIGHUP, hang_up);
}
