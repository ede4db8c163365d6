// SPDX-License-Identifier: Apache-2.0
// What touch views tell their clients. Rectangles are in view pixels unless a comment
// says otherwise, texts UTF-8.
#pragma once

#include "raster/CpRect.h"

#include <string>
#include <vector>

// How an operation of a touch view ended.
enum class TouchResult {
    Ok,
    NothingThere, // no link, hit, word or selection
    OutOfRange,   // a number that the document does not have
    NotSupported, // the module, or a document of this kind, does not have it
    NotWritable,  // a file that the client names
    Failed,       // the module failed
};

enum class ExportFormat { Pdf, Text };

// The place of the view in its document, and of the search: what a scrollbar, a page
// number and a zoom slider show.
struct ViewPlace {
    // The document at the current zoom, in pixels. The height of a text is an estimate
    // until it is laid out to its end.
    long long documentWidth = 0;
    long long documentHeight = 0;
    // The view in it, in the same pixels.
    CpRect view;
    // 1 shows 12 points as a sixth of an inch. The fit is what a double tap returns to.
    double zoom = 1.0;
    double smallestZoom = 1.0;
    double largestZoom = 1.0;
    double fit = 1.0;
    // The sheet, slide or page, from 0, and how many there are.
    int part = 0;
    int parts = 1;
    // The current hit, from 0, and how many there are. -1 without one.
    int hit = -1;
    int hits = 0;
    bool isMoving = false; // a glide
};

// A hit of a search.
struct HitPlace {
    int hit = -1; // from 0; -1: there is none
    int hits = 0; // in the whole document
    int part = 0; // its sheet or slide
};

struct SearchOptions {
    bool matchCase = false;
    bool wholeWords = false;
};

enum class SelectUnit { None, Word, Line, All };
enum class SelectEnd { Start, End };

struct Selection {
    std::string text;
    std::vector<CpRect> rectangles;
};

// A line of text on the screen.
struct TextLine {
    std::string text;
    CpRect place;
};

// A heading, sheet or slide.
struct OutlineEntry {
    std::string title;
    int level = 0; // from 0
    int part = 0;  // its sheet, slide or page, from 0
};

struct Cell {
    int column = 0; // from 0
    int row = 0;
    std::string address; // "B7"
    std::string text;
    std::string formula; // empty for a cell without one
    std::string comment;
    CpRect place;
};
