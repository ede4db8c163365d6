// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/touch", for documents that were opened with touch
// manners. Points and rectangles are pixels of the view from its top left corner,
// unless a comment says otherwise; texts are UTF-8; sheets, slides, columns, rows, hits
// and entries count from 0. Document::ask makes the calls that these functions return; it
// describes the threads, the errors and the limits.
//
// Errors of kind refused, by name: "errWrongType" (opened without touch manners),
// "errNotOpen" (the document is still being opened), "errOutOfRange" (a number that the
// document does not have), "errNothingThere" (no hit, text or cell at the place),
// "errNotSupported" (not for this kind of document, or not by its rendering module),
// "errFailed" (the rendering module failed).
#pragma once

#include <lectern/Call.h>
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

Call<ViewPlace> getView();
// Moves the view's top left corner to a point of the document, in pixels at the current
// zoom, as far as the document reaches. Ends a glide.
Call<void> scrollTo(Point at);
// Zooms inside the limits of the view. The document stays where it is under the point,
// by default the view's centre.
Call<void> zoomTo(double zoom, std::optional<Point> about = {});
// The address of the link that was tapped last; empty before that.
Call<std::string> getLink();

// Marks all hits and moves the view to the first one at or below its top.
Call<Hit> search(const std::string& text, const SearchOptions& options = {});
// Move the view to the next or previous hit; the first one follows the last one.
Call<Hit> nextResult();
Call<Hit> previousResult();

// Selects the word or line at a point, all, or nothing.
Call<void> select(SelectUnit unit, Point at = {});
// Moves an end of the selection to a point.
Call<void> moveSelectionEnd(SelectEnd end, Point to);
Call<Selection> getSelection();

// The text on the screen, in reading order.
Call<std::vector<TextLine>> getText();
// The headings of a text, or the sheets or slides.
Call<std::vector<OutlineEntry>> getOutline();
// Shows an entry of the outline.
Call<void> goTo(int entry);
// A cell of the shown sheet; by default the one that was tapped last.
Call<Cell> getCell(std::optional<CellAddress> at = {});
// Paints a slide or page into a picture of the caller, whole and centred. The picture
// must exist until the call has ended.
Call<void> getThumbnail(int part, const FrameBuffer& picture);
// Writes the document to a file. path: absolute; the service creates the file or empties
// it first.
Call<void> exportTo(ExportFormat format, const std::string& path);

} // namespace lectern::touch

#pragma GCC visibility pop
