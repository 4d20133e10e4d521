// platform.h: what differs between operating systems: file descriptors, the process id, manners on the desktop,
// opening a web page.
//
// The program's paths use backslashes; every function here turns them into the host's separator. Results are
// those of the system calls: -1 and errno on failure.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <cstddef>

int platform_open_read(const char *path); // read-only
int platform_may_write(const char *path); // 0 where the file can be opened for writing or none is there but can be made
std::ptrdiff_t platform_read(int fd, void *bytes, std::size_t count); // goes on after interruptions and short reads
std::ptrdiff_t platform_write(int fd, const void *bytes, std::size_t count); // likewise

// Writes the bytes over the start of the file, which is at every moment either the old one (or none) or the new one: a
// second file takes its place, its owner and its permissions. Where that fails, it is written in place, if there is
// surely room. 0 or -1.
int platform_replace(const char *path, const void *bytes, std::size_t count);

int platform_seek(int fd, int offset);                    // from the file's start; the new position, or -1
int platform_size(int fd);                                // bytes of the file, at most the largest int; -1 on failure
void platform_close(int fd);                              // whatever comes of it
int platform_copy_file(const char *from, const char *to); // replaces `to` once all is on the disk; 0 or -1
int platform_process_id();                                // for the log

// Claims the folder for this process until it ends, however it ends, and removes what a killed save has left there; a
// folder claimed before is given up. False when another process has it. Where the file system knows no locks, or there
// is no such folder, nobody is kept out.
[[nodiscard]] bool platform_claim_folder(const char *path);

// Asks the desktop to open the address, without a shell in between and without waiting for it.
void platform_open_web_page(const char *address);

// Before SDL starts: names the window's class for docks and task bars, leaves the screen saver to the desktop, has
// the mouse told by its place and the window shown by a desktop or not at all (the environment may say otherwise for
// each), and lets the end of the session end the program like SIGTERM.
void platform_join_desktop();
