// SPDX-License-Identifier: Apache-2.0
// Rendering the cells, drawing marks over them, and copying cells and headers into
// the client's frame buffer.
#include "excel/Excel.h"
#include "raster/Saturate.h"
#include "view/DrawingBudget.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstring>

namespace {

constexpr uint32_t WHITE = 0xFFFFFFFF;
constexpr uint32_t COMMENT_COLOUR = 0x80FF0000;

constexpr unsigned int SQUARE_SIDE = 16; // a power of two
constexpr uint32_t SQUARE_COLOUR = 0xFFFEDCBA;
constexpr uint32_t OTHER_SQUARE_COLOUR = 0xFFABCDEF;

bool prvIsOddSquare(unsigned int position) {
    return (position & SQUARE_SIDE) != 0;
}

void prvDrawSquares(uint32_t* row, unsigned int width, unsigned int x, bool odd) {
    for (unsigned int column = 0; column < width;) {
        const unsigned int untilNext = SQUARE_SIDE - (x + column) % SQUARE_SIDE;
        const unsigned int count = std::min(untilNext, width - column);
        FillPixels(row + column, count,
                   prvIsOddSquare(x + column) == odd ? SQUARE_COLOUR : OTHER_SQUARE_COLOUR);
        column += count;
    }
}

// Draws the chequered background, which is fixed to the document. `position` is the
// document pixel of the frame's first pixel and may be negative. There are only two
// different rows, so all others are copies.
void prvDrawGround(uint32_t* frame, int width, int height, const CpPoint& position) {
    const uint32_t* finished[2] = {nullptr, nullptr};
    const auto columns = static_cast<unsigned int>(width);
    for (int row = 0; row < height; ++row, frame += columns) {
        const bool odd =
            prvIsOddSquare(static_cast<unsigned int>(position.y) + static_cast<unsigned int>(row));
        if (finished[odd] != nullptr) {
            std::memcpy(frame, finished[odd], columns * sizeof *frame);
        } else {
            prvDrawSquares(frame, columns, static_cast<unsigned int>(position.x), odd);
            finished[odd] = frame;
        }
    }
}

} // namespace

int Excel::drawOffscreenBuffer() {
    if (!isOpen()) {
        std::fputs("drawOffscreenBuffer: no allocated buffer\n", stderr);
        return 0;
    }
    mRenderResult = mModule.stg_render_sheet(mDocument, mCurrentSheet, mCells->Left(), mCells->Top());
    mUnrendered = mRenderResult != 0;
    drawCommentMarks();
    mOffscreenDirty = false;
    return 0;
}

void Excel::drawCommentMarks() {
    DrawingBudget budget(*mCells);
    for (const stg_region& mark : mCommentMarks) {
        const int side = mark.height / 2;
        const int right = saturatedSum(saturatedDifference(mark.x, mCells->Left()), mark.width);
        const int left = saturatedDifference(right, side);
        const int top = saturatedDifference(mark.y, mCells->Top());
        if (budget.coversTriangle(left, top, side)) {
            mCells->DrawAlphaTriOnPix(left, top, side, COMMENT_COLOUR);
        }
    }
}

void Excel::handlePaint(unsigned int* frameBuffer) {
    MutexLock guard;
    if (guard.lock(&mMutex) != 0) {
        return;
    }
    tick();
    clampPosition(mScroll.x, mScroll.y);
    // clang-format off
    assert(mDrawMode ==_NORMAL); // the text is part of the interface
    // clang-format on
    if (mOffscreenDirty && !mScroller.isMoving()) {
        drawOffscreenBuffer();
    }
    if (repeatLastFrame(frameBuffer)) {
        return;
    }
    drawScreen(frameBuffer);
    keepFrame(frameBuffer);
}

void Excel::drawScreen(unsigned int* frameBuffer) {
    prvDrawGround(frameBuffer, mWidth, mHeight, mScroll);
    CpPixmap screen(frameBuffer, mWidth, mHeight);
    const CpPoint header = corner();
    const CpPoint toScreen(saturatedDifference(0, mScroll.x), saturatedDifference(0, mScroll.y));

    // The corner between the headers moves with the sheet if mScroll is negative.
    CpRect box(0, 0, header.x, header.y);
    box.Offset(std::max(0, toScreen.x), std::max(0, toScreen.y));
    screen.DrawAlphaRectOnPix(box, WHITE);

    CpRect screenRect;
    CpRect window;
    getViewDocBounds(screenRect);
    getOffscreenDocBounds(window);
    screenRect.Intersect(window);
    screenRect.Offset(toScreen);
    CpRect sourceRect = screenRect;
    sourceRect.Offset(saturatedDifference(mScroll.x, window.Left()),
                      saturatedDifference(mScroll.y, window.Top()));
    if (!screenRect.Empty()) {
        drawScreenFragment(frameBuffer, screenRect, sourceRect);
    }
    if (mResizeMode) {
        CpRect cells(header.x, header.y, mWidth, mHeight);
        screen.DrawAlphaRectOnPix(cells, RESIZE_MODE_VEIL);
    }
}

void Excel::drawScreenFragment(unsigned int* frameBuffer, const CpRect& screenRect,
                               const CpRect& sourceRect) {
    const CpPoint header = corner();
    // The cells are shifted and cut to make room for the headers.
    const CpPoint at(screenRect.Left() + header.x, screenRect.Top() + header.y);
    const CpRect cells(sourceRect.Left(), sourceRect.Top(), sourceRect.Right() - header.x,
                       sourceRect.Bottom() - header.y);
    const auto copy = [&](const CpPixmap& from, const CpRect& part, const CpPoint& to) {
        from.CopyBitsTo(part, frameBuffer, CpRect(to, to), mWidth);
    };

    // The headers are always at the top and left edges of the screen.
    copy(*mColumnHeaders, CpRect(cells.Left(), 0, cells.Right(), std::min(header.y, mHeight)),
         CpPoint(at.x, 0));
    // The row headers are left out if the cells start further down than their visible
    // part is high.
    if (at.y < cells.Height()) {
        copy(*mRowHeaders, CpRect(0, cells.Top(), std::min(header.x, mWidth), cells.Bottom()),
             CpPoint(0, at.y));
    }
    copy(*mCells, cells, at);

    if (mCurrentResult >= 0) {
        CpPixmap screen(frameBuffer, mWidth, mHeight);
        drawCurrentResult(&screen);
    }
}
