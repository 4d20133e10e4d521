// seams.cpp: the functions that the linker puts in the place of the system's and SDL's, which may fail.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "sweep/sweep.h"

#include <SDL.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

// A seam declares the real function and begins what stands in its place.
#define SEAM(result, name, ...)                                                                                        \
    extern "C" result __real_##name(__VA_ARGS__);                                                                      \
    extern "C" result __wrap_##name(__VA_ARGS__)

namespace {

int archive = -1; // the descriptor whose bytes may be damaged

constexpr u32 AUDIO_BYTES = 16384;

int failed(int reason) {
    errno = reason;
    return -1;
}

template <class T> T *null_after(int reason) {
    errno = reason;
    return nullptr;
}

template <class Result> Result sdl_failed(Result result) {
    SDL_SetError("made to fail");
    return result;
}

// What a read of the damaged archive brings.
ssize_t damaged_read(i64 offset, u8 *bytes, ssize_t count) {
    if (struck().what == ARCHIVE_CUT)
        return static_cast<ssize_t>(std::clamp<i64>(struck().place - offset, 0, count));
    const i64 at = struck().place - offset;
    if (struck().what == ARCHIVE_FLIPPED && at >= 0 && at < count)
        bytes[at] ^= 0xD5; // the sign too
    return count;
}

} // namespace

// A seam that gives `instead` when it fails and is the real function otherwise.
#define FAILS(result, name, parameters, arguments, what, instead)                                                      \
    extern "C" result __real_##name parameters;                                                                        \
    extern "C" result __wrap_##name parameters {                                                                       \
        return strikes(what) ? (instead) : __real_##name arguments;                                                    \
    }

// clang-format off
FAILS(off_t, lseek, (int fd, off_t to, int whence), (fd, to, whence), SEEK_FAILS, failed(EIO))
FAILS(int, fsync, (int fd), (fd), SYNC_FAILS, failed(EIO))
FAILS(char *, realpath, (const char *path, char *to), (path, to), REPLACE_FAILS, null_after<char>(EACCES))
FAILS(std::FILE *, fopen, (const char *path, const char *mode), (path, mode), LOG_FAILS, null_after<std::FILE>(EACCES))
FAILS(SDL_mutex *, SDL_CreateMutex, (), (), MUTEX_FAILS, sdl_failed<SDL_mutex *>(nullptr))
FAILS(long, ov_read, (OggVorbis_File *file, char *to, int length, int endian, int word, int is_signed, int *link), (file, to, length, endian, word, is_signed, link), DECODER_FAILS, OV_EREAD)
// clang-format on

// --- Files ---------------------------------------------------------------------------------------

extern "C" int __real_open(const char *path, int flags, ...);
extern "C" int __wrap_open(const char *path, int flags, ...) {
    if (strikes(OPEN_FAILS))
        return failed((flags & O_WRONLY) != 0 ? EROFS : EACCES);
    std::va_list rest;
    va_start(rest, flags);
    const std::string own = struck().what == NO_FAILURE ? path : own_path(path);
    const int descriptor = __real_open(own.c_str(), flags, va_arg(rest, mode_t));
    va_end(rest);
    if (std::strstr(path, "data.dar") != nullptr)
        archive = descriptor;
    return descriptor;
}
SEAM(ssize_t, read, int descriptor, void *bytes, std::size_t count) {
    if (strikes(READ_FAILS))
        return failed(EIO);
    if (strikes(READ_INTERRUPTED))
        return failed(EINTR);
    if (strikes(READ_ENDS))
        return 0;
    if (strikes(READ_SHORT))
        count = (count + 1) / 2;
    const i64 offset = __real_lseek(descriptor, 0, SEEK_CUR);
    const ssize_t done = __real_read(descriptor, bytes, count);
    if (descriptor != archive || done <= 0)
        return done;
    for (i64 at = offset; at < offset + done && struck().what == NO_FAILURE; ++at)
        strikes(ARCHIVE_FLIPPED, at);
    return damaged_read(offset, static_cast<u8 *>(bytes), done);
}
SEAM(ssize_t, write, int descriptor, const void *bytes, std::size_t count) {
    if (strikes(WRITE_FAILS))
        return failed(ENOSPC);
    if (strikes(WRITE_INTERRUPTED))
        return failed(EINTR);
    if (strikes(WRITE_SHORT) || strikes(WRITE_CUT))
        return __real_write(descriptor, bytes, (count + 1) / 2);
    if (struck().what == WRITE_CUT)
        return failed(ENOSPC);
    return __real_write(descriptor, bytes, count);
}
SEAM(int, close, int descriptor) {
    if (descriptor == archive)
        archive = -1;
    const int result = __real_close(descriptor);
    return strikes(CLOSE_FAILS) ? failed(EIO) : result;
}
SEAM(int, fstat, int descriptor, struct stat *status) {
    if (strikes(STAT_FAILS))
        return failed(EIO);
    const int result = __real_fstat(descriptor, status);
    if (descriptor == archive) {
        for (i64 at = 0; at < status->st_size && struck().what == NO_FAILURE; ++at)
            strikes(ARCHIVE_CUT, at);
        if (struck().what == ARCHIVE_CUT)
            status->st_size = struck().place;
    }
    return result;
}
SEAM(int, rename, const char *from, const char *to) {
    if (strikes(REPLACE_FAILS))
        return failed(EXDEV);
    if (struck().what == NO_FAILURE)
        return __real_rename(from, to);
    return __real_rename(own_path(from).c_str(), own_path(to).c_str());
}
SEAM(int, unlink, const char *path) {
    return __real_unlink(struck().what == NO_FAILURE ? path : own_path(path).c_str());
}

// --- SDL -----------------------------------------------------------------------------------------

// Without its timer and audio, which have threads of their own.
SEAM(int, SDL_Init, Uint32) {
    return strikes(SDL_START_FAILS) ? sdl_failed(-1) : __real_SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE);
}
SEAM(int, SDL_InitSubSystem, Uint32) {
    return 0;
}
SEAM(int, SDL_mutexP, SDL_mutex *) { // a child could not release what was taken before the fork
    return 0;
}
SEAM(int, SDL_mutexV, SDL_mutex *) {
    return 0;
}
SEAM(int, SDL_OpenAudio, SDL_AudioSpec *wanted, SDL_AudioSpec *) {
    wanted->size = AUDIO_BYTES;
    return strikes(AUDIO_FAILS) ? sdl_failed(-1) : 0;
}
