// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Client.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

// A spreadsheet on a client's screen: where headers and cells are is read off
// the pixels, and what is done is done with taps, strokes and pinches.
class SheetScreen {
public:
    // An area of the screen, right and bottom outside.
    struct Area {
        int left, top, right, bottom;
        bool has(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    };
    // What stands between two lines of a header strip, the line before it
    // included: begin to behind its end, in pixels of the screen.
    struct Header {
        int begin, end;
        int middle() const { return (begin + end) / 2; }
    };

    SheetScreen(BusConnection& bus, Queue& queue, const std::string& path, int width = 480, int height = 800)
        : mQueue(queue), mDocument(bus, queue, path, width, height) {
        mDocument.paint();
    }

    TestDocument& document() { return mDocument; }
    int width() const { return mDocument.width(); }
    int height() const { return mDocument.height(); }
    uint32_t at(int x, int y) const { return mDocument.frame()[y * width() + x]; }
    // The whole screen but the last row, whose last byte is the status.
    std::vector<uint32_t> pixels() const;

    // Where cells are, beside the white corner and the header strips.
    Area cells() const;
    // The headers that are seen from line to line; at the sheet's edge from
    // the corner on.
    std::vector<Header> columns() const;
    std::vector<Header> rows() const;

    // Taps the middle of a header, and returns the notices that came.
    std::set<int> tapColumn(const Header& column);
    std::set<int> tapRow(const Header& row);
    // A pen's contact; the notices that came.
    std::set<int> stroke(int fromX, int fromY, int toX, int toY);
    // The ids of the notices that wait.
    std::set<int> notices();
    // {"comment": ...} of the last tap, and its member.
    std::string lastComment() { return call("getLastComment"); }

    // The view at this document pixel, or as near as it may go, and at rest.
    void scrollTo(int x, int y);
    // Ends what moves, as clients do: the window of cells is then around the view.
    void rest();
    void zoom(double scale) { mDocument.pinch(scale / mDocument.scale()); }
    // A method of "/excel", and a paint.
    std::string call(const std::string& method, const std::string& more = "") {
        return mDocument.call("/excel", method, more);
    }
    // Goes to a sheet and measures it.
    void show(int sheet);
    // The text of the selection, which is gone then, written into a file.
    std::string copy(const std::string& file);

private:
    std::vector<Header> headers(int first, int last, bool fromCorner, bool across) const;

    Queue& mQueue;
    TestDocument mDocument;
};

// A member of a JSON object as text; empty when there is none.
std::string jsonMember(const std::string& json, const char* key);
