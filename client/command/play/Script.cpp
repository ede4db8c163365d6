// SPDX-License-Identifier: Apache-2.0
#include "client/command/play/Script.h"

#include "client/command/play/Instructions.h"
#include "client/lib/Errors.h"

#include <cerrno>
#include <fstream>
#include <sstream>

namespace lectern::play {

namespace {

// The limit also keeps sums of times from overflowing.
constexpr std::chrono::milliseconds LONGEST_SCRIPT = std::chrono::hours(24);

// Reads a script line by line and computes the time of each step.
class Reader {
public:
    explicit Reader(const std::string& name) { mScript.name = name; }

    Failure take(int number, const std::string& text) {
        const Line line(text);
        if (line.isEmpty()) {
            return std::nullopt;
        }
        const Result<Instruction> instruction = readInstruction(line);
        if (!instruction) {
            return lineError(mScript, number, instruction.error());
        }
        const std::chrono::milliseconds due =
            instruction->isTime ? instruction->time : mNow + instruction->time;
        if (due < mNow || due > LONGEST_SCRIPT) {
            const std::string now = std::to_string(mNow.count());
            return lineError(mScript, number,
                             {Error::Kind::Argument,
                              due < mNow ? "this time has passed: the script is already at " + now + " ms"
                                         : "a script can last at most 24 hours",
                              0,
                              {}});
        }
        mNow = due;
        mScript.steps.push_back({number, due, instruction->action});
        if (const auto* pinch = std::get_if<Pinch>(&instruction->action)) {
            mNow += pinch->duration;
        }
        return std::nullopt;
    }
    Script script() && { return std::move(mScript); }

private:
    Script mScript;
    std::chrono::milliseconds mNow{0};
};

} // namespace

Error lineError(const Script& script, int line, Error error) {
    error.text = script.name + ":" + std::to_string(line) + ": " + error.text;
    return error;
}

Result<Script> parseScript(const std::string& name, const std::string& text) {
    Reader reader(name);
    std::istringstream lines(text);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        if (const Failure failure = reader.take(++number, line)) {
            return *failure;
        }
    }
    return std::move(reader).script();
}

Result<Script> readScript(const std::string& path) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (file) {
        text << file.rdbuf();
    }
    // Copying an empty file sets the stream's fail bit, which is not an error.
    if (!file.is_open() || file.bad() || (text.fail() && errno != 0)) {
        return systemError("cannot read the script '" + path + "'", errno);
    }
    return parseScript(path, text.str());
}

} // namespace lectern::play
