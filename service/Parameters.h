// SPDX-License-Identifier: Apache-2.0
// The parameters of the methods of a document. read() reads them in a fixed order
// and replies with the right error text if one is missing. values() are the
// arguments of the operation.
#pragma once

#include "service/BusCall.h"

#include <cstring>
#include <tuple>

struct Docid {
    int docid = 0;

    bool read(BusCall& call) { return call.require("docid", docid, NO_DOCID); }
    std::tuple<> values() const { return {}; }
};

// A point in view pixels, or the velocity of a flick in pixels per second.
struct Point {
    int docid = 0;
    int x = 0;
    int y = 0;

    bool read(BusCall& call) {
        return call.require("docid", docid) && call.require("xCoord", x) && call.require("yCoord", y);
    }
    std::tuple<int, int> values() const { return {x, y}; }
};

struct KeyPress {
    int docid = 0;
    int key = 0;
    int modifiers = 0;

    bool read(BusCall& call) {
        return call.require("chr", key) && call.require("modifiers", modifiers) &&
               call.require("docid", docid);
    }
    std::tuple<int, int> values() const { return {key, modifiers}; }
};

struct SearchText {
    int docid = 0;
    const char* text = nullptr;

    bool read(BusCall& call) {
        return call.require("docid", docid, NO_DOCID) && call.require("search", text, NO_SEARCH_TEXT);
    }
    std::tuple<const char*> values() const { return {text}; }
};

// The path of the file to copy to. Clients send it under the key "column".
struct CopyTarget {
    int docid = 0;
    const char* path = nullptr;

    bool read(BusCall& call) { return call.require("docid", docid) && call.require("column", path); }
    std::tuple<const char*> values() const { return {path}; }
};

struct SheetNumber {
    int docid = 0;
    int sheet = 0;

    bool read(BusCall& call) { return call.require("docid", docid) && call.require("sheet", sheet); }
    std::tuple<int> values() const { return {sheet}; }
};

// "on" means true, every other text false.
struct Mode {
    int docid = 0;
    const char* mode = nullptr;

    bool read(BusCall& call) { return call.require("docid", docid) && call.require("mode", mode); }
    std::tuple<bool> values() const { return {std::strcmp(mode, "on") == 0}; }
};

struct SlideNumber {
    int docid = 0;
    int slide = 0;

    bool read(BusCall& call) {
        return call.require("docid", docid, NO_DOCID) &&
               call.require("slide", slide, "failed to get slide number");
    }
    std::tuple<int> values() const { return {slide}; }
};

// How the device is turned, or null if the caller leaves it out.
struct Orientation {
    int docid = 0;
    const char* orientation = nullptr;

    bool read(BusCall& call) {
        json_get_string(call.payload(), "orientation", &orientation);
        return call.require("docid", docid, NO_DOCID);
    }
    std::tuple<const char*> values() const { return {orientation}; }
};
