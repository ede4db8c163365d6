// SPDX-License-Identifier: Apache-2.0
// Timed input for a view, written as text with one instruction per line: "down
// 240 700", "wait 500", "frame after-drag". lectern(1) lists the instructions.
#pragma once

#include "client/lib/ScrollPlan.h"
#include <lectern/Result.h>

#include <chrono>
#include <optional>
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
    Point velocity; // of the finger, in pixels per second
};
struct Pinch {
    double factor = 1.0;
    std::chrono::milliseconds duration{0};
    std::optional<Point> at = {}; // the point between the fingers; touch manners only
};
struct ScrollBy {
    Point way; // touch manners only
};
struct Resize {
    int width = 1;
    int height = 1; // touch manners only
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
// Starts a series of frames with this period; 0 ends it.
struct TakeFrames {
    std::chrono::milliseconds period{0};
};
// Does nothing at its time.
struct Wait {};

using Action =
    std::variant<PenDown, PenMove, PenUp, Click, DoubleClick, Flick, Pinch, ScrollBy, Resize, Key, GoToSheet,
                 GoToSlide, Search, NextHit, PreviousHit, EndSearch, Wide, TakeFrame, TakeFrames, Wait>;

struct Step {
    int line = 0;                     // of the script, from 1
    std::chrono::milliseconds due{0}; // after the start; never decreases from step to step
    Action action;
};

struct Script {
    std::string name; // of the script's file, for messages
    std::vector<Step> steps;
};

// Adds the script's name and the line to an error: "tour.play:7: ...".
Error lineError(const Script& script, int line, Error error);

// The name is for messages. An error has kind Argument and names the line.
Result<Script> parseScript(const std::string& name, const std::string& text);
Result<Script> readScript(const std::string& path);

} // namespace lectern::play
