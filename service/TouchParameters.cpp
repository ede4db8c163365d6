// SPDX-License-Identifier: Apache-2.0
#include "service/TouchParameters.h"

#include <cmath>
#include <cstring>

namespace {

// What a word of a parameter stands for.
template<typename Value>
struct Word {
    const char* text;
    Value value;
};

constexpr Word<SelectUnit> UNITS[] = {
    {"none", SelectUnit::None},
    {"word", SelectUnit::Word},
    {"line", SelectUnit::Line},
    {"all", SelectUnit::All},
};
constexpr Word<ExportFormat> FORMATS[] = {{"pdf", ExportFormat::Pdf}, {"text", ExportFormat::Text}};
constexpr Word<SelectEnd> ENDS[] = {{"start", SelectEnd::Start}, {"end", SelectEnd::End}};

template<typename Value, size_t count>
bool take(const char* text, const Word<Value> (&words)[count], Value& value) {
    for (const Word<Value>& word : words) {
        if (std::strcmp(text, word.text) == 0) {
            value = word.value;
            return true;
        }
    }
    return false;
}

bool requirePoint(BusCall& call, CpPoint& point) {
    return call.require("x", point.x) && call.require("y", point.y);
}

} // namespace

bool TouchPoint::read(BusCall& call) {
    return call.require("docid", docid, NO_DOCID) && requirePoint(call, point);
}

bool TouchZoom::read(BusCall& call) {
    if (!call.require("docid", docid, NO_DOCID) || !call.require("zoom", zoom)) {
        return false;
    }
    hasPoint = json_get_int(call.payload(), "x", &point.x) && json_get_int(call.payload(), "y", &point.y);
    if (!std::isfinite(zoom) || zoom <= 0.0) {
        call.replyError(OUT_OF_RANGE, OUT_OF_RANGE_TEXT);
        return false;
    }
    return true;
}

bool TouchSearch::read(BusCall& call) {
    json_get_bool(call.payload(), "matchCase", &options.matchCase);
    json_get_bool(call.payload(), "wholeWords", &options.wholeWords);
    return call.require("docid", docid, NO_DOCID) && call.require("search", text, NO_SEARCH_TEXT);
}

bool TouchSelect::read(BusCall& call) {
    if (!call.require("docid", docid, NO_DOCID)) {
        return false;
    }
    const char* word = nullptr;
    movesEnd = json_get_string(call.payload(), "end", &word);
    if (!movesEnd && !call.require("unit", word)) {
        return false;
    }
    if (movesEnd ? !take(word, ENDS, end) : !take(word, UNITS, unit)) {
        call.replyError(OUT_OF_RANGE, OUT_OF_RANGE_TEXT);
        return false;
    }
    const bool needsPoint = movesEnd || unit == SelectUnit::Word || unit == SelectUnit::Line;
    return !needsPoint || requirePoint(call, point);
}

bool TouchCell::read(BusCall& call) {
    if (!json_get_int(call.payload(), "column", &column) || !json_get_int(call.payload(), "row", &row)) {
        column = -1;
        row = -1;
    }
    return call.require("docid", docid, NO_DOCID);
}

bool TouchThumbnail::read(BusCall& call) {
    return call.require("docid", docid, NO_DOCID) && call.require("part", part) &&
           call.require("width", width) && call.require("height", height) && call.require("shmid", shmid) &&
           call.require("size", size);
}

bool TouchSize::read(BusCall& call) {
    return call.require("docid", docid, NO_DOCID) && call.require("width", width) &&
           call.require("height", height) && call.require("shmid", shmid) && call.require("size", size);
}

bool TouchExport::read(BusCall& call) {
    const char* word = nullptr;
    if (!call.require("docid", docid, NO_DOCID) || !call.require("format", word) ||
        !call.require("path", path)) {
        return false;
    }
    if (!take(word, FORMATS, format)) {
        call.replyError(OUT_OF_RANGE, OUT_OF_RANGE_TEXT);
        return false;
    }
    return true;
}
