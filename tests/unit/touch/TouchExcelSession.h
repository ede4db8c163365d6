// SPDX-License-Identifier: Apache-2.0
// Random sessions of a person with a spreadsheet: everything that can happen to a touch
// view, with its guarantees checked after every step. For any module.
#pragma once

#include "tests/unit/touch/TouchClock.h"
#include "touch/TouchExcel.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

class SessionExcel : public TouchExcel {
public:
    using TouchExcel::corner;
    using TouchExcel::documentPoint;
    using TouchExcel::mCells;
    using TouchExcel::mCurrentSheet;
    using TouchExcel::mScale;
    using TouchExcel::mScroll;
    using TouchExcel::mSheetHeight;
    using TouchExcel::mSheetWidth;
    using TouchExcel::rendered;
    using TouchExcel::shownCells;
    using TouchExcel::TouchExcel;

    int width() const { return mWidth; }
    int height() const { return mHeight; }
};

class TouchExcelSession {
public:
    // Whether a frame's pixel is right; may be empty.
    using PixelCheck = std::function<bool(const SessionExcel& view, int x, int y, uint32_t pixel)>;

    TouchExcelSession(unsigned seed, const char* path, int width, int height, double dotsPerInch,
                      PixelCheck isRight);
    ~TouchExcelSession();

    void play(int operations);
    // Goes to the four corners of the sheet by flicks.
    void visitEnds();
    // The text that is searched.
    void setWanted(const std::string& text) { mWanted = text; }

    // Failures and the number of their occurrences.
    const std::map<std::string, int>& failures() const { return mFailures; }

private:
    // A point of the sheet by its cell: zooms do not multiply pixels by one number.
    struct CellPlace {
        Cell cell;
        double x = 0.0; // pixels of the view
        double y = 0.0;
    };

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(mRandom); }
    bool chance(int percent) { return number(1, 100) <= percent; }
    CpPoint somewhere() { return {number(0, mView->width() - 1), number(0, mView->height() - 1)}; }
    CpPoint onCells();
    void check(bool good, const std::string& what);
    void open(unsigned int store);
    void atPaint(const char* what);
    bool isFrameRight() const;
    void drag();
    void flick(int vx, int vy);
    void pinch();
    void doubleTap();
    void tap();
    void stroke();
    void select();
    void search();
    void jump();
    void turn();
    void reopen();
    void rest();
    bool isAtEdge(bool sideways) const;
    void checkZoomKeeps(const CpPoint& from, const CpPoint& to, const char* what,
                        const std::function<void()>& zoom);

    std::mt19937 mRandom;
    TouchClock mClock;
    std::string mPath;
    std::string mWanted = "a";
    double mDotsPerInch;
    PixelCheck mIsRight;
    std::unique_ptr<SessionExcel> mView;
    std::vector<uint32_t> mFrame;
    int mPaints = 0;
    std::map<std::string, int> mFailures;
};
