// SPDX-License-Identifier: Apache-2.0
// Random sessions of a reader with touch manners, with the guarantees of the view
// checked after every step. The clock moves only here.
#pragma once

#include "tests/unit/touch/TouchWordTest.h"

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

class TouchWordSession {
public:
    TouchWordSession(unsigned seed, int width, int height, int64_t rows, bool optional);

    void play(int operations);
    // Drags to the text's end, to its start, and to the end again.
    void visitEnds();

    // Failures and the number of their occurrences.
    const std::map<std::string, int>& failures() const { return mFailures; }

private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(mRandom); }
    bool chance(int percent) { return number(1, 100) <= percent; }
    void check(bool good, const std::string& what);
    void atPaint(const char* what);
    void checkPixels(const char* what);
    void drag();
    void fling();
    bool moveALittle();
    void pinch();
    void tap();
    void zoom();
    void turn();
    void search();
    void jump();
    void popup();
    void scrollFar();
    void reopen();
    int64_t onText(int64_t row) const;
    uint32_t characterAt(int64_t row) const;
    int64_t rowOf(uint32_t character) const;
    void checkHeld(uint32_t character, double wanted, double tolerance, const char* what);

    std::mt19937 mRandom;
    bool mOptional;
    int mFirstWidth;
    int mPaints = 0;
    std::unique_ptr<TestTouchWord> mView;
    std::vector<uint32_t> mFrame;
    std::map<std::string, int> mFailures;
};
