// fail.h: how the tool gives up: an exception with a sentence for the user, caught by main.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include <stdexcept>
#include <string>

[[noreturn]] inline void fail(const std::string &message) {
    throw std::runtime_error(message);
}
