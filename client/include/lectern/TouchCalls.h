// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/touch", for documents that were opened with touch
// manners. Points and rectangles are pixels of the view from its top left corner,
// unless a comment says otherwise; texts are UTF-8; sheets, slides, columns, rows, hits
// and entries count from 0. Bus.h describes the threads, the errors and the limits of a
// call.
//
// Errors of kind refused, by name: "errWrongType" (opened without touch manners),
// "errNotOpen" (the document is still being opened), "errOutOfRange" (a number that the
// document does not have), "errNothingThere" (no hit, text or cell at the place),
// "errNotSupported" (not for this kind of document, or not by its rendering module),
// "errFailed" (the rendering module failed).
#pragma once

#include <lectern/Bus.h>
#include <lectern/FrameBuffer.h>
#include <lectern/Point.h>

#include <optional>
#include <string>
#include <vector>

#pragma GCC visibility push(default)

namespace lectern::touch {

struct Rectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Rectangle&) const = default;
};

// The place of the view in its document, and of the search. Enough for a scrollbar, a
// page number and a zoom slider, and quick enough for each frame.
struct ViewPlace {
    // The document at the current zoom, and the view in it, in pixels of the document.
    // The height of a text is an estimate until it is laid out to its end.
    long long documentWidth = 0;
    long long documentHeight = 0;
    Rectangle view;
    double zoom = 1.0; // 1 shows text of 12 points as a sixth of an inch
    double smallestZoom = 1.0;
    double largestZoom = 1.0;
    double fit = 1.0; // the zoom to which a double tap returns
    int part = 0;     // the sheet, slide or page
    int parts = 1;    // how many there are
    int hit = -1;     // the current hit of the search; -1 without one
    int hits = 0;
    bool isMoving = false; // a glide
};

struct SearchOptions {
    bool matchCase = false;
    bool wholeWords = false;
};

struct Hit {
    int hit = -1; // its number in the document
    int hits = 0; // in the whole document
    int part = 0; // its sheet or slide
    bool operator==(const Hit&) const = default;
};

enum class SelectUnit { None, Word, Line, All };
enum class SelectEnd { Start, End };

struct Selection {
    std::string text;
    std::vector<Rectangle> rectangles;
};

struct TextLine {
    std::string text;
    Rectangle place;
};

// A heading, sheet or slide.
struct OutlineEntry {
    std::string title;
    int level = 0; // from 0
    int part = 0;  // its sheet, slide or page
};

struct CellAddress {
    int column = 0;
    int row = 0;
};

struct Cell {
    CellAddress at;
    std::string address; // "B7"
    std::string text;
    std::string formula; // empty for a cell without one
    std::string comment;
    Rectangle place;
};

enum class ExportFormat { Pdf, Text };

Result<ViewPlace> getView(const Bus& bus, int docid, const CallLimits& limits = {});
// Moves the view's top left corner to a point of the document, in pixels at the current
// zoom, as far as the document reaches. Ends a glide.
Failure scrollTo(const Bus& bus, int docid, Point at, const CallLimits& limits = {});
// Zooms inside the limits of the view. The document stays where it is under the point,
// by default the view's centre.
Failure zoomTo(const Bus& bus, int docid, double zoom, std::optional<Point> about = {},
               const CallLimits& limits = {});
// The address of the link that was tapped last; empty before that.
Result<std::string> getLink(const Bus& bus, int docid, const CallLimits& limits = {});

// Marks all hits and moves the view to the first one at or below its top.
Result<Hit> search(const Bus& bus, int docid, const std::string& text, const SearchOptions& options = {},
                   const CallLimits& limits = {});
// Move the view to the next or previous hit; the first one follows the last one.
Result<Hit> nextResult(const Bus& bus, int docid, const CallLimits& limits = {});
Result<Hit> previousResult(const Bus& bus, int docid, const CallLimits& limits = {});

// Selects the word or line at a point, all, or nothing.
Failure select(const Bus& bus, int docid, SelectUnit unit, Point at = {}, const CallLimits& limits = {});
// Moves an end of the selection to a point.
Failure moveSelectionEnd(const Bus& bus, int docid, SelectEnd end, Point to, const CallLimits& limits = {});
Result<Selection> getSelection(const Bus& bus, int docid, const CallLimits& limits = {});

// The text on the screen, in reading order.
Result<std::vector<TextLine>> getText(const Bus& bus, int docid, const CallLimits& limits = {});
// The headings of a text, or the sheets or slides.
Result<std::vector<OutlineEntry>> getOutline(const Bus& bus, int docid, const CallLimits& limits = {});
// Shows an entry of the outline.
Failure goTo(const Bus& bus, int docid, int entry, const CallLimits& limits = {});
// A cell of the shown sheet; by default the one that was tapped last.
Result<Cell> getCell(const Bus& bus, int docid, std::optional<CellAddress> at = {},
                     const CallLimits& limits = {});
// Paints a slide or page into a picture of the caller, whole and centred.
Failure getThumbnail(const Bus& bus, int docid, int part, const FrameBuffer& picture,
                     const CallLimits& limits = {});
// Writes the document to a file. path: absolute; the service creates the file or empties
// it first.
Failure exportTo(const Bus& bus, int docid, ExportFormat format, const std::string& path,
                 const CallLimits& limits = {});

// Gives the view another size and frame buffer. Use Document::resize for the document of
// a program, which replaces its frame buffer too.
Failure resize(const Bus& bus, int docid, const FrameBuffer& frame, const CallLimits& limits = {});
// Gives up the open of a document. Sent without waiting for the reply. owner:
// CreateReply::owner. The document must still be destroyed.
Failure cancel(const Bus& bus, int docid, const std::string& owner = SERVICE_NAME);

} // namespace lectern::touch

#pragma GCC visibility pop
