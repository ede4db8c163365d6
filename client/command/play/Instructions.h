// SPDX-License-Identifier: Apache-2.0
// The instructions of scripts.
#pragma once

#include "client/command/play/Script.h"
#include <lectern/Result.h>

#include <chrono>
#include <string>
#include <vector>

namespace lectern::play {

// A line of a script: the name of an instruction and its operands.
class Line {
public:
    explicit Line(const std::string& text);

    // Whether the line has only blanks or a comment.
    bool isEmpty() const { return mName.empty(); }
    const std::string& text() const { return mText; }
    const std::string& name() const { return mName; }
    const std::vector<std::string>& operands() const { return mOperands; }
    // All operands as written.
    const std::string& rest() const { return mRest; }

private:
    std::string mText; // without blanks around it
    std::string mName;
    std::vector<std::string> mOperands;
    std::string mRest;
};

struct Instruction {
    Action action;
    std::chrono::milliseconds time{0}; // delay before the action
    bool isTime = false;               // time counts from the start of the script
};

// On failure returns an error of kind Argument that tells how the instruction
// is written.
Result<Instruction> readInstruction(const Line& line);

// The form of each instruction, for example "down X Y".
std::vector<std::string> instructionForms();

} // namespace lectern::play
