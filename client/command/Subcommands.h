// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/Arguments.h"

#include <span>
#include <string>
#include <string_view>

namespace lectern {

// The description of a sub-command.
struct Subcommand {
    const char* name;
    const char* operands; // as shown in the help
    const char* summary;
    int (*run)(const Words& words); // returns the exit status
};

std::span<const Subcommand> subcommands();
// The text of "lectern --help".
std::string generalHelp();
// Runs the sub-command with this name and returns the exit status.
int runSubcommand(std::string_view name, const Words& words);

} // namespace lectern
