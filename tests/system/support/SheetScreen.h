// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Client.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

// A spreadsheet on a client's screen. Finds headers and cells in the pixels,
// and acts by taps, strokes and pinches.
class SheetScreen {
public:
    // An area of the screen; right and bottom are exclusive.
    struct Area {
        int left, top, right, bottom;
        bool has(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    };
    // The part between two lines of a header strip, with the line before it:
    // screen pixels [begin, end).
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
    // The whole screen except the last row, whose last byte is the status.
    std::vector<uint32_t> pixels() const;

    // The area of the cells, beside the white corner and the header strips.
    Area cells() const;
    // The headers that are completely visible; at the sheet's edge the first
    // one begins at the corner.
    std::vector<Header> columns() const;
    std::vector<Header> rows() const;

    // Taps the middle of a header; returns the ids of the notifications.
    std::set<int> tapColumn(const Header& column);
    std::set<int> tapRow(const Header& row);
    // A pen contact; returns the ids of the notifications.
    std::set<int> stroke(int fromX, int fromY, int toX, int toY);
    // The ids of the waiting notifications.
    std::set<int> notices();
    // The comment of the last tap as {"comment": ...}, and its text.
    std::string lastComment() { return call("getLastComment"); }

    // Moves the view to this document pixel, or as near as possible, and stops it there.
    void scrollTo(int x, int y);
    // Stops all movement, as clients do; the window of cells is then around the view.
    void rest();
    void zoom(double scale) { mDocument.pinch(scale / mDocument.scale()); }
    // Calls a method of "/excel", and paints.
    std::string call(const std::string& method, const std::string& more = "") {
        return mDocument.call("/excel", method, more);
    }
    // Goes to a sheet and measures it.
    void show(int sheet);
    // Copies the selection to a file, which clears it; returns the text.
    std::string copy(const std::string& file);

private:
    std::vector<Header> headers(int first, int last, bool fromCorner, bool across) const;

    Queue& mQueue;
    TestDocument mDocument;
};

// A member of a JSON object as text; empty when it is missing.
std::string jsonMember(const std::string& json, const char* key);
