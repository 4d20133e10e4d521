// fail.h: ending the program with a message; these are tools of the build, so every error is final.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <string>

namespace art {

// Writes "tavimo-art: MESSAGE" to standard error and ends the process with status 1.
[[noreturn]] void fail(const std::string &message);

} // namespace art
