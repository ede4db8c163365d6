// SPDX-License-Identifier: Apache-2.0
// Timed input for a view, as a text of one instruction a line: "down 240 700",
// "wait 500", "frame after-drag". lectern(1) lists them.
#pragma once

#include "client/lib/ScrollPlan.h"
#include <lectern/Result.h>

#include <chrono>
#include <string>
#include <variant>
#include <vector>

namespace lectern::play {

// x and y: view pixels.
struct PenDown {
    Point at;
};
struct PenMove {
    Point at;
};
struct PenUp {
    Point at;
};
struct Click {
    Point at;
};
struct DoubleClick {
    Point at;
};
struct Flick {
    Point velocity; // of the finger, pixels per second
};
struct Pinch {
    double factor = 1.0;
    std::chrono::milliseconds duration{0};
};
struct Key {
    int key = 0;
    int modifiers = 0;
};
struct GoToSheet {
    int number = 1;
};
struct GoToSlide {
    int number = 1;
};
struct Search {
    std::string text;
};
struct NextHit {};
struct PreviousHit {};
struct EndSearch {};
struct Wide {
    bool on = false;
};
struct TakeFrame {
    std::string name; // may be empty
};
// From here on a frame each time this has passed; 0: no longer.
struct TakeFrames {
    std::chrono::milliseconds period{0};
};
// Nothing but the time that has come.
struct Wait {};

using Action =
    std::variant<PenDown, PenMove, PenUp, Click, DoubleClick, Flick, Pinch, Key, GoToSheet, GoToSlide, Search,
                 NextHit, PreviousHit, EndSearch, Wide, TakeFrame, TakeFrames, Wait>;

struct Step {
    int line = 0;                     // of the script, from 1
    std::chrono::milliseconds due{0}; // after the start; never before the step before it
    Action action;
};

struct Script {
    std::string name; // of its file, for messages
    std::vector<Step> steps;
};

// The error of a line: "tour.play:7: ...".
Error lineError(const Script& script, int line, Error error);

// The name is for messages. An error is of kind argument and names its line.
Result<Script> parseScript(const std::string& name, const std::string& text);
Result<Script> readScript(const std::string& path);

} // namespace lectern::play
