// SPDX-License-Identifier: Apache-2.0
#include "client/command/play/Instructions.h"

#include "client/command/Values.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <utility>

namespace lectern::play {

namespace {

constexpr int LONGEST_WAIT = 24 * 60 * 60 * 1'000; // milliseconds; one day
constexpr char BLANKS[] = " \t\r";

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(BLANKS);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

using Read = std::optional<Instruction>;
using Operands = std::vector<std::string>;

Read given(Action action) {
    return Instruction{std::move(action)};
}

Read timeFrom(const Operands& operands, bool isTime) {
    const auto milliseconds = parseInteger(operands[0], 0, LONGEST_WAIT);
    return milliseconds ? Read(Instruction{Wait(), std::chrono::milliseconds(*milliseconds), isTime})
                        : std::nullopt;
}

template<typename Input>
Read readPoint(const Line& line) {
    const auto x = parseInteger(line.operands()[0], INT32_MIN, INT32_MAX);
    const auto y = parseInteger(line.operands()[1], INT32_MIN, INT32_MAX);
    return x && y ? given(Input{Point{*x, *y}}) : std::nullopt;
}

template<typename Jump>
Read readJump(const Line& line) {
    const auto number = parseCount(line.operands()[0]);
    return number ? given(Jump{*number}) : std::nullopt;
}

template<typename Plain>
Read readPlain(const Line& /*line*/) {
    return given(Plain());
}

Read readWait(const Line& line) {
    return timeFrom(line.operands(), false);
}

Read readAt(const Line& line) {
    return timeFrom(line.operands(), true);
}

Read readPinch(const Line& line) {
    const Operands& operands = line.operands();
    const auto factor = parseFactor(operands[0]);
    const auto duration = operands.size() < 2 ? 0 : parseInteger(operands[1], 0, LONGEST_WAIT);
    return factor && duration ? given(Pinch{*factor, std::chrono::milliseconds(*duration)}) : std::nullopt;
}

Read readPinchAt(const Line& line) {
    const Operands& operands = line.operands();
    const auto x = parseInteger(operands[0], INT32_MIN, INT32_MAX);
    const auto y = parseInteger(operands[1], INT32_MIN, INT32_MAX);
    const auto factor = parseFactor(operands[2]);
    const auto duration = operands.size() < 4 ? 0 : parseInteger(operands[3], 0, LONGEST_WAIT);
    return x && y && factor && duration
               ? given(Pinch{*factor, std::chrono::milliseconds(*duration), Point{*x, *y}})
               : std::nullopt;
}

Read readResize(const Line& line) {
    const auto size = parseSize(line.operands()[0]);
    return size ? given(Resize{size->first, size->second}) : std::nullopt;
}

Read readKey(const Line& line) {
    const Operands& operands = line.operands();
    const auto key = parseInteger(operands[0], 0, INT32_MAX);
    const auto modifiers = operands.size() < 2 ? 0 : parseInteger(operands[1], 0, INT32_MAX);
    return key && modifiers ? given(Key{*key, *modifiers}) : std::nullopt;
}

Read readSearch(const Line& line) {
    return given(Search{line.rest()});
}

Read readWide(const Line& line) {
    const std::string& word = line.operands()[0];
    return word == "on" || word == "off" ? given(Wide{word == "on"}) : std::nullopt;
}

// The name becomes part of a file name.
Read readFrame(const Line& line) {
    const std::string& name = line.rest();
    const bool fit = std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_';
    });
    return fit ? given(TakeFrame{name}) : std::nullopt;
}

Read readEvery(const Line& line) {
    if (line.operands()[0] == "off") {
        return given(TakeFrames());
    }
    const auto period = parseInteger(line.operands()[0], 1, LONGEST_WAIT);
    return period ? given(TakeFrames{std::chrono::milliseconds(*period)}) : std::nullopt;
}

constexpr size_t ANY_NUMBER = SIZE_MAX;

struct Form {
    const char* name;
    size_t leastOperands;
    size_t mostOperands;
    const char* operands; // as shown in messages
    Read (*read)(const Line& line);
};

constexpr Form FORMS[] = {
    {"wait", 1, 1, "MILLISECONDS", readWait},
    {"at", 1, 1, "MILLISECONDS", readAt},
    {"down", 2, 2, "X Y", readPoint<PenDown>},
    {"move", 2, 2, "X Y", readPoint<PenMove>},
    {"up", 2, 2, "X Y", readPoint<PenUp>},
    {"click", 2, 2, "X Y", readPoint<Click>},
    {"doubleclick", 2, 2, "X Y", readPoint<DoubleClick>},
    {"flick", 2, 2, "VX VY", readPoint<Flick>},
    {"pinch", 1, 2, "FACTOR [MILLISECONDS]", readPinch},
    {"pinchat", 3, 4, "X Y FACTOR [MILLISECONDS]", readPinchAt},
    {"scrollby", 2, 2, "X Y", readPoint<ScrollBy>},
    {"resize", 1, 1, "WIDTHxHEIGHT", readResize},
    {"key", 1, 2, "CODE [MODIFIERS]", readKey},
    {"sheet", 1, 1, "NUMBER", readJump<GoToSheet>},
    {"slide", 1, 1, "NUMBER", readJump<GoToSlide>},
    {"search", 1, ANY_NUMBER, "TEXT", readSearch},
    {"next", 0, 0, "", readPlain<NextHit>},
    {"previous", 0, 0, "", readPlain<PreviousHit>},
    {"close", 0, 0, "", readPlain<EndSearch>},
    {"wide", 1, 1, "on|off", readWide},
    {"frame", 0, 1, "[NAME]", readFrame},
    {"every", 1, 1, "MILLISECONDS|off", readEvery},
};

std::string shown(const Form& form) {
    return std::string(form.name) + (*form.operands == '\0' ? "" : " ") + form.operands;
}

Error misuse(std::string text) {
    return {Error::Kind::Argument, std::move(text), 0, {}};
}

} // namespace

Line::Line(const std::string& text) : mText(trimmed(text)) {
    if (mText.rfind('#', 0) == 0) {
        return;
    }
    std::istringstream words(mText);
    words >> mName;
    mRest = trimmed(mText.substr(mName.size()));
    for (std::string word; words >> word;) {
        mOperands.push_back(word);
    }
}

Result<Instruction> readInstruction(const Line& line) {
    const auto* form = std::find_if(std::begin(FORMS), std::end(FORMS),
                                    [&line](const Form& known) { return line.name() == known.name; });
    if (form == std::end(FORMS)) {
        return misuse("'" + line.name() + "' is not an instruction; lectern(1) lists them all");
    }
    const size_t count = line.operands().size();
    const bool fits = count >= form->leastOperands && count <= form->mostOperands;
    if (const Read read = fits ? form->read(line) : std::nullopt) {
        return *read;
    }
    return misuse("'" + line.text() + "' is wrong; the form is '" + shown(*form) + "'");
}

std::vector<std::string> instructionForms() {
    std::vector<std::string> all;
    std::transform(std::begin(FORMS), std::end(FORMS), std::back_inserter(all), shown);
    return all;
}

} // namespace lectern::play
