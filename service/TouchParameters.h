// SPDX-License-Identifier: Apache-2.0
// The parameters of the methods of "/touch". read() replies with an error and returns
// false if one is missing or is not what the method takes.
#pragma once

#include "service/BusCall.h"
#include "touch/TouchTypes.h"

// The parameters that every method has.
struct TouchDocid {
    int docid = 0;

    bool read(BusCall& call) { return call.require("docid", docid, NO_DOCID); }
};

// A point: of the document for scrollTo, else of the view, in pixels.
struct TouchPoint {
    int docid = 0;
    CpPoint point{0, 0};

    bool read(BusCall& call);
};

struct TouchZoom {
    int docid = 0;
    double zoom = 1.0;
    bool hasPoint = false; // else about the view's centre
    CpPoint point{0, 0};

    bool read(BusCall& call);
};

struct TouchSearch {
    int docid = 0;
    const char* text = nullptr;
    SearchOptions options;

    bool read(BusCall& call);
};

// Either a unit at a point, or an end that is moved to it.
struct TouchSelect {
    int docid = 0;
    bool movesEnd = false;
    SelectUnit unit = SelectUnit::Word;
    SelectEnd end = SelectEnd::End;
    CpPoint point{0, 0}; // not with the units "all" and "none"

    bool read(BusCall& call);
};

struct TouchEntry {
    int docid = 0;
    int entry = 0;

    bool read(BusCall& call) {
        return call.require("docid", docid, NO_DOCID) && call.require("entry", entry);
    }
};

struct TouchCell {
    int docid = 0;
    int column = -1; // both -1: the cell that was tapped last
    int row = -1;

    bool read(BusCall& call);
};

struct TouchThumbnail {
    int docid = 0;
    int part = 0;
    int width = 0;
    int height = 0;
    unsigned int shmid = 0;
    int size = 0;

    bool read(BusCall& call);
};

// A view's new size and its new frame buffer, as in "create".
struct TouchSize {
    int docid = 0;
    int width = 0;
    int height = 0;
    unsigned int shmid = 0;
    int size = 0;

    bool read(BusCall& call);
};

struct TouchExport {
    int docid = 0;
    ExportFormat format = ExportFormat::Pdf;
    const char* path = nullptr;

    bool read(BusCall& call);
};
