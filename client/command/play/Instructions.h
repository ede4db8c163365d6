// SPDX-License-Identifier: Apache-2.0
// The instructions of scripts, one by one.
#pragma once

#include "client/command/play/Script.h"
#include <lectern/Result.h>

#include <chrono>
#include <string>
#include <vector>

namespace lectern::play {

// A line of a script: an instruction's name and its operands.
class Line {
public:
    explicit Line(const std::string& text);

    // Nothing but blanks, or a comment.
    bool isEmpty() const { return mName.empty(); }
    const std::string& text() const { return mText; }
    const std::string& name() const { return mName; }
    const std::vector<std::string>& operands() const { return mOperands; }
    // All operands as they stand.
    const std::string& rest() const { return mRest; }

private:
    std::string mText; // without blanks around it
    std::string mName;
    std::vector<std::string> mOperands;
    std::string mRest;
};

struct Instruction {
    Action action;
    std::chrono::milliseconds time{0}; // to wait before the action
    bool isTime = false;               // time is counted from the start
};

// An error of kind argument that says how the instruction is written.
Result<Instruction> readInstruction(const Line& line);

// How each instruction is written, for example "down X Y".
std::vector<std::string> instructionForms();

} // namespace lectern::play
