// platform.cpp: the system calls of a POSIX host.
//
// Descriptors are closed on exec, so the browser that platform_open_web_page starts inherits none.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "platform/platform.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

static constexpr mode_t NEW_FILE_MODE = 0666;        // less the umask
static constexpr std::size_t COPY_CHUNK = 16 * 1024; // bytes
static constexpr int EXIT_NOT_FOUND = 127;           // what a shell would say

static int open_host_path(const char *path, int flags) {
    char host[PATH_MAX];
    std::size_t length = 0;
    for (; path[length] != '\0'; ++length) {
        if (length + 1 == sizeof host) {
            errno = ENAMETOOLONG;
            return -1;
        }
        host[length] = path[length] == '\\' ? '/' : path[length];
    }
    host[length] = '\0';
    return open(host, flags | O_CLOEXEC, NEW_FILE_MODE);
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
    return transfer(read, fd, static_cast<u8 *>(bytes), count);
}

std::ptrdiff_t platform_write(int fd, const void *bytes, std::size_t count) {
    return transfer(write, fd, static_cast<const u8 *>(bytes), count);
}

i32 platform_seek(int fd, i32 offset) {
    return static_cast<i32>(lseek(fd, offset, SEEK_SET));
}

i32 platform_size(int fd) {
    struct stat status = {};
    if (fstat(fd, &status) != 0)
        return -1;
    return static_cast<i32>(std::min<off_t>(status.st_size, std::numeric_limits<i32>::max()));
}

void platform_close(int fd) {
    close(fd);
}

static int copy_descriptor(int from, int to) {
    u8 chunk[COPY_CHUNK];
    for (;;) {
        const std::ptrdiff_t n = platform_read(from, chunk, sizeof chunk);
        if (n < 0)
            return -1;
        if (n == 0)
            return fsync(to);
        if (platform_write(to, chunk, static_cast<std::size_t>(n)) != n)
            return -1;
    }
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

i32 platform_process_id() {
    return static_cast<i32>(getpid());
}

// In the grandchild: nothing but calls that are safe between fork and exec.
[[noreturn]] static void exec_browser(const char *address) {
    const int nowhere = open("/dev/null", O_RDWR);
    if (nowhere >= 0) {
        dup2(nowhere, STDIN_FILENO);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
    }
    execlp("xdg-open", "xdg-open", address, static_cast<char *>(nullptr));
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
