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
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

static constexpr mode_t NEW_FILE_MODE = 0666;    // less the umask
static constexpr mode_t ALL_PERMISSIONS = 07777; // of a file's mode
static constexpr std::size_t COPY_CHUNK = 16384; // bytes
static constexpr char BESIDE_MARK[] = ".new-";   // before the process's number, in the name of a file in the making
static constexpr std::size_t LONGEST_MARK = 24;
static constexpr int EXIT_NOT_FOUND = 127; // what a shell would say
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

// The host's path and a name beside it that no other process uses.
struct replacement {
    char target[PATH_MAX];
    char beside[PATH_MAX + LONGEST_MARK];
};

static void name_beside(replacement *paths) {
    std::snprintf(paths->beside, sizeof paths->beside, "%s%s%d", paths->target, BESIDE_MARK, platform_process_id());
}

// What a process left that was killed between making its file beside the old one and moving it over that.
static void remove_leftovers(int folder) {
    DIR *list = fdopendir(fcntl(folder, F_DUPFD_CLOEXEC, 0));
    if (list == nullptr)
        return;
    while (const dirent *entry = readdir(list)) {
        const char *mark = std::strstr(entry->d_name, BESIDE_MARK);
        const char *number = mark != nullptr ? mark + std::strlen(BESIDE_MARK) : "";
        if (*number != '\0' && number[std::strspn(number, "0123456789")] == '\0')
            unlinkat(folder, entry->d_name, 0);
    }
    closedir(list);
}

// Moves what was made beside over the target if it is whole, else takes it away. 0, or -1 with errno as it was.
static int put_in_place(const replacement &paths, bool whole) {
    const bool done = whole && rename(paths.beside, paths.target) == 0;
    const int reason = errno;
    unlink(paths.beside); // also where both names were one file, which rename leaves alone
    errno = reason;
    return done ? 0 : -1;
}

// A save must neither make a private file public nor take it from its owner. Where the file system knows none of
// these, or we may not give it away, there is nothing to keep.
static void take_over(int fresh, const struct stat &old) {
    if (fchown(fresh, old.st_uid, old.st_gid) != 0)
        errno = 0;
    static_cast<void>(fchmod(fresh, (old.st_mode & ALL_PERMISSIONS) | S_IRUSR));
}

// The bytes, and behind them what of the old file is longer, as far as there is one that can be read; safe on the disk
// when true.
static bool write_beside(int fresh, const char *old_path, const void *bytes, std::size_t count) {
    struct stat status = {};
    if (stat(old_path, &status) == 0)
        take_over(fresh, status);
    bool written = write_all(fresh, bytes, count);
    const int old = written ? open(old_path, O_RDONLY | O_CLOEXEC) : -1;
    if (old >= 0) {
        written = lseek(old, static_cast<off_t>(count), SEEK_SET) >= 0 && copy_descriptor(old, fresh) == 0;
        platform_close(old);
    }
    return written && fsync(fresh) == 0;
}

// One write over the start, for which the disk has room already or gives it now. A file of several names stays as it
// is: one of them may be a copy that is kept.
static bool write_over(const char *path, const void *bytes, std::size_t count) {
    const int old = open(path, O_WRONLY | O_CLOEXEC);
    if (old < 0)
        return false;
    struct stat status = {};
    const bool fits =
        fstat(old, &status) == 0 && status.st_nlink == 1 &&
        (static_cast<off_t>(count) <= status.st_size || posix_fallocate(old, 0, static_cast<off_t>(count)) == 0);
    const bool written = fits && write_all(old, bytes, count) && fsync(old) == 0;
    platform_close(old);
    return written;
}

// A link is followed, and stays; one that leads nowhere is none to write to.
static bool find_target(replacement *paths, const char *path) {
    char host[PATH_MAX], link;
    if (!to_host_path(host, path))
        return false;
    if (realpath(host, paths->target) == nullptr) {
        if (errno != ENOENT || readlink(host, &link, 1) >= 0)
            return false;
        errno = ENOENT;
        std::strcpy(paths->target, host);
    }
    name_beside(paths);
    return true;
}

int platform_may_write(const char *path) {
    replacement paths;
    const int fd = open_host_path(path, O_WRONLY);
    if (fd >= 0)
        platform_close(fd);
    if (fd >= 0 || errno != ENOENT || !find_target(&paths, path))
        return fd >= 0 ? 0 : -1;
    char *end = std::strrchr(paths.target, '/');
    if (end == nullptr)
        return access(".", W_OK | X_OK);
    end[1] = '\0';
    return access(paths.target, W_OK | X_OK);
}

// A limit on the size of files would cut what is written in place, too.
int platform_replace(const char *path, const void *bytes, std::size_t count) {
    replacement paths;
    if (!find_target(&paths, path))
        return -1;
    const int fresh = open(paths.beside, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, NEW_FILE_MODE);
    if (fresh >= 0) {
        const bool whole = write_beside(fresh, paths.target, bytes, count);
        platform_close(fresh);
        if (put_in_place(paths, whole) == 0)
            return 0;
    }
    const int reason = errno;
    if (reason != EFBIG && write_over(paths.target, bytes, count))
        return 0;
    errno = reason;
    return -1;
}

// A file that cannot be read is kept all the same: under both names, until another one takes the place of the first.
int platform_copy_file(const char *from, const char *to) {
    replacement paths;
    char source[PATH_MAX];
    if (!to_host_path(source, from) || !to_host_path(paths.target, to))
        return -1;
    name_beside(&paths);
    const int old = open(source, O_RDONLY | O_CLOEXEC);
    if (old < 0)
        return put_in_place(paths, errno == EACCES && link(source, paths.beside) == 0);
    const int fresh = open(paths.beside, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, NEW_FILE_MODE);
    bool whole = false;
    if (fresh >= 0) {
        struct stat status = {};
        if (fstat(old, &status) == 0)
            take_over(fresh, status);
        whole = copy_descriptor(old, fresh) == 0;
        platform_close(fresh);
    }
    platform_close(old);
    return put_in_place(paths, whole);
}

// The lock is the system's, on the folder itself: it goes with the process and leaves no file behind.
bool platform_claim_folder(const char *path) {
    static int claimed = -1;
    if (claimed >= 0)
        close(claimed);
    claimed = open_host_path(path, O_RDONLY | O_DIRECTORY);
    if (claimed < 0)
        return true;
    if (flock(claimed, LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    remove_leftovers(claimed);
    return true;
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

static bool is_set(const char *variable) {
    const char *value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

void platform_join_desktop() {
    constexpr int KEEP = 0;
    setenv("SDL_VIDEO_X11_WMCLASS", "tavimo", KEEP);
    setenv("SDL_VIDEO_WAYLAND_WMCLASS", "tavimo", KEEP);
    setenv("SDL_VIDEO_ALLOW_SCREENSAVER", "1", KEEP);
    setenv("SDL_MOUSE_RELATIVE", "0", KEEP);
    setenv("SDL_VIDEODRIVER", is_set("WAYLAND_DISPLAY") && !is_set("DISPLAY") ? "wayland" : "x11", KEEP);
    struct sigaction present = {};
    if (sigaction(SIGHUP, nullptr, &present) == 0 && present.sa_handler == SIG_DFL)
        std::signal(SIGHUP, hang_up);
}
