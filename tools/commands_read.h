// commands_read.h: the commands that look into archives. Each returns the exit code; failures are exceptions (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "commands.h"

int command_list(const command_arguments &arguments, const command_options &options);
int command_check(const command_arguments &arguments, const command_options &options);
int command_diff(const command_arguments &arguments, const command_options &options);
int command_rules(const command_arguments &arguments, const command_options &options);
