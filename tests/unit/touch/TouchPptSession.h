// SPDX-License-Identifier: Apache-2.0
// Random sessions of a reader: everything that can happen to a presentation with touch
// manners, with its guarantees checked after every step.
#pragma once

#include "TouchPptTest.h"

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

class TouchPptSession {
public:
    // The pixel of the current slide at a place of the surface.
    using SlidePixel = uint32_t (*)(const TestTouchPpt& view, int column, int row);

    // Opens a presentation, in which many slides have the text `wanted`.
    TouchPptSession(unsigned seed, int width, int height, const std::string& path, const char* wanted,
                    SlidePixel slidePixel);

    void play(int operations);
    // Goes to all edges of a zoomed slide.
    void visitEnds();

    // Failures and the number of their occurrences.
    const std::map<std::string, int>& failures() const { return mFailures; }

private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(mRandom); }
    bool chance(int percent) { return number(1, 100) <= percent; }
    CpPoint anyPoint() { return {number(0, mWidth - 1), number(0, mHeight - 1)}; }
    // A point of the client's frame in the upright picture.
    CpPoint upright(const CpPoint& point) const;
    // Where the slide has the pixel at a point, from 0 to 1 in both directions.
    std::pair<double, double> shareAt(const CpPoint& point) const;
    CpPoint reachable(const CpPoint& scroll) const;

    void drag();
    void fling();
    void pinch();
    void doubleTap();
    void turnPage();
    void stepThroughHits();
    void turnDevice();
    void resize();
    void jump();
    void thumbnail();
    void oddInput();

    void atPaint(const char* what);
    void checkPixels(const char* what);
    void checkRest();
    void checkKept(const CpPoint& point, const std::pair<double, double>& share, const char* what);
    void check(bool good, const std::string& what);
    void dropRecords();

    std::mt19937 mRandom;
    TouchClock mClock;
    int mWidth;
    int mHeight;
    const char* mWanted;
    SlidePixel mSlidePixel;
    std::string mMode;
    std::unique_ptr<TestTouchPpt> mView;
    std::vector<uint32_t> mFrame;
    std::map<std::string, int> mFailures;
};
