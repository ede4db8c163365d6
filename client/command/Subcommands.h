// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/Arguments.h"

#include <span>
#include <string>
#include <string_view>

namespace lectern {

// A sub-command by its name.
struct Subcommand {
    const char* name;
    const char* operands; // as shown
    const char* summary;
    int (*run)(const Words& words); // the exit status
};

std::span<const Subcommand> subcommands();
// What "lectern --help" shows.
std::string generalHelp();
// Runs the sub-command of this name; the exit status.
int runSubcommand(std::string_view name, const Words& words);

} // namespace lectern
