// commands_write.h: the commands that write archives and folders. Each returns the exit code; failures are exceptions
// (fail.h).
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

#include "commands.h"

int command_pack(const command_arguments &arguments, const command_options &options);
int command_extract(const command_arguments &arguments, const command_options &options);
int command_replace(const command_arguments &arguments, const command_options &options);
