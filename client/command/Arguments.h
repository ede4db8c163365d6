// SPDX-License-Identifier: Apache-2.0
// The arguments of the lectern command's sub-commands, read and checked.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "client/ScrollPlan.h"

namespace lectern {

struct OpenArguments {
    std::string file;
    std::string output;
    int width = 480;
    int height = 800;
    std::optional<std::string> password;
    double zoom = 1.0;
    Point scroll;
    bool wide = false;
    std::optional<std::string> search;
    int hit = 1; // which hit to show, from 1; those after the last show the last
};

struct InfoArguments {
    std::string file;
    std::optional<std::string> password;
};

struct SearchArguments {
    std::string file;
    std::string text;
    std::optional<std::string> password;
};

struct ServeArguments {};

// What is printed when nothing is to be done.
struct Help {
    std::string text;
};
struct Misuse {
    std::string text; // what is wrong with the arguments
};

template<typename Arguments>
using Parsed = std::variant<Arguments, Help, Misuse>;

// The words after the sub-command's name.
using Words = std::vector<std::string>;

Parsed<OpenArguments> parseOpen(const Words& words);
Parsed<InfoArguments> parseInfo(const Words& words);
Parsed<SearchArguments> parseSearch(const Words& words);
Parsed<ServeArguments> parseServe(const Words& words);

} // namespace lectern
