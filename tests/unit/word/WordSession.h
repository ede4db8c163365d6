// SPDX-License-Identifier: Apache-2.0
// Random sessions of a reader: everything that can happen to a Word view, with
// its guarantees checked after every step.
#pragma once

#include "tests/unit/view/TestClock.h"
#include "tests/unit/word/TestWord.h"

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

class WordSession {
public:
    WordSession(unsigned seed, int width, int height, int64_t rows, bool wide);
    ~WordSession();

    void play(int operations);
    // Goes to the text's end, back to its start and to the end again.
    void visitEnds();

    // Failures and the number of their occurrences.
    const std::map<std::string, int>& failures() const { return mFailures; }

private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(mRandom); }
    bool chance(int percent) { return number(1, 100) <= percent; }
    void open(unsigned int store);
    void drag();
    void fling();
    void doubleTap();
    void pinch();
    void followLink();
    void stepThroughHits();
    void stepToHit(bool next);
    void popup();
    void reopen();
    void setWide(bool on);
    void atPaint(const char* what);
    void checkFrame(const char* what);
    void checkMoved(int64_t from, int64_t input, const char* what);
    void checkMovedSideways(int from, int input, const char* what);
    void checkKeptPlace(const FakeWordLayout& before, int64_t offset, const char* what);
    void check(bool good, const std::string& what);
    int64_t onText(int64_t row) const;
    int onLayout(int column) const;
    int hitIndex() const;
    int64_t rowOfCharacter(uint32_t position) const;

    std::mt19937 mRandom;
    TestClock mClock;
    int mWidth, mHeight;
    int mPaints = 0;
    std::unique_ptr<TestWord> mView;
    std::vector<uint32_t> mFrame;
    std::map<std::string, int> mFailures;
};
