// SPDX-License-Identifier: Apache-2.0
// lectern: opens documents from the command line.
#include "client/command/Commands.h"
#include "client/command/Subcommands.h"

#include <cstdio>
#include <string_view>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs(lectern::generalHelp().c_str(), stderr);
        return lectern::STATUS_MISUSE;
    }
    const std::string_view name = argv[1];
    if (name == "--help" || name == "-h" || name == "help") {
        std::fputs(lectern::generalHelp().c_str(), stdout);
        return lectern::STATUS_DONE;
    }
    if (name == "--version") {
        std::puts("lectern " LECTERN_VERSION);
        return lectern::STATUS_DONE;
    }
    return lectern::runSubcommand(name, lectern::Words(argv + 2, argv + argc));
}
