// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPixmap.h"

#include <cstdint>

// How a sheet lies on the screen. The headers cover the left and top edge; the document
// pixel (left, top) is shown right below their corner, and a document pixel has `scale`
// screen pixels: 1 but for the preview of a zoom.
struct SheetPlace {
    double left = 0.0;
    double top = 0.0;
    double scale = 1.0;
    CpPoint header{0, 0};

    double screenX(double x) const { return header.x + (x - left) * scale; }
    double screenY(double y) const { return header.y + (y - top) * scale; }
};

// The frame of a client, into which a sheet is drawn.
class SheetScreen {
public:
    SheetScreen(uint32_t* frame, int width, int height, const SheetPlace& place);

    // The part of the screen that shows cells.
    const CpRect& cells() const { return mCells; }
    // The document pixels that it shows; those partly shown count.
    CpRect shown() const;

    // What a sheet of this size looks like without its contents: its colour, the lines of
    // cells that are (lineWidth, lineHeight) pixels large, and empty headers.
    void drawGround(const CpPoint& sheetSize, const CpPoint& cellSize);
    // Draw a rendered part of the sheet. `bounds` are the document pixels that all three
    // show; the headers show only those along them.
    void drawCells(const CpPixmap& cells, const CpRect& bounds);
    void drawHeaders(const CpPixmap& rows, const CpPixmap& columns, const CpRect& bounds);
    void drawCorner();
    // The rectangles are in document pixels; what the headers cover is left out.
    void tint(const CpRect& area, uint32_t colour);
    void drawFrame(const CpRect& area, int thickness, uint32_t colour);
    void drawVeil(uint32_t colour);
    // A line through the cells and the headers at a screen column or row.
    void drawVerticalGuide(int x, int thickness, uint32_t colour);
    void drawHorizontalGuide(int y, int thickness, uint32_t colour);

private:
    CpRect onScreen(const CpRect& area) const;
    void fill(const CpRect& part, uint32_t colour);
    void blend(CpRect part, uint32_t colour);
    // Draws a picture whose first pixel is the document pixel `origin` into a part of the
    // screen. An axis whose origin is null is that of a header: it begins with the part.
    void draw(const CpPixmap& picture, const int* left, const int* top, const CpRect& part);

    CpPixmap mScreen;
    SheetPlace mPlace;
    CpRect mCells;
};
