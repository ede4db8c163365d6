// SPDX-License-Identifier: Apache-2.0
#include "tests/fakes/word/FakeWordDocument.h"

#include <algorithm>

extern "C" FakeWordControl* fake_word_control();

FakeWordDocument::FakeWordDocument(int64_t rows, uint32_t characters, int32_t lineHeight)
    : mRowsAtFirst(rows), mCharacters(characters), mLineHeight(lineHeight) {}

// Another size takes effect at the next layout. A pop-up's buffer is replaced
// before that.
void FakeWordDocument::setBuffer(uint32_t* pixels, int32_t width, int32_t height) {
    mBuffer = pixels;
    mBufferWidth = width;
    mBufferHeight = height;
    if (mFirstWidth == 0) {
        mFirstWidth = width;
    }
}

void FakeWordDocument::setDpi(int32_t dpi) {
    markStale();
    mLayout.dpi = dpi;
}

void FakeWordDocument::markStale() {
    if (!mStale) {
        mAnchor = mLayout.rows > 0 ? characterAtTop() : 0;
        mStale = true;
    }
}

void FakeWordDocument::layOut() {
    const bool resized = mBufferWidth != mLayout.width || mBufferHeight != mLayout.height;
    if (!mStale && !resized) {
        if (mPixels != mBuffer) {
            mPixels = mBuffer;
            paint();
        }
        return;
    }
    markStale();
    mPixels = mBuffer;
    mLayout.width = mBufferWidth;
    mLayout.height = mBufferHeight;
    mLayout.lineRows = std::max<int64_t>(1, int64_t{mLineHeight} * mLayout.dpi / 72);
    const double zoom = mLayout.dpi / 72.0;
    const double area = static_cast<double>(mRowsAtFirst) * mFirstWidth * zoom * zoom;
    const int64_t rows = std::max<int64_t>(1, static_cast<int64_t>(area / mLayout.width));
    const int64_t lineCount = std::clamp<int64_t>(rows / mLayout.lineRows, 1, mCharacters);
    mLayout.rows = lineCount * mLayout.lineRows;
    mLayout.top = lineOf(mAnchor) * mLayout.lineRows;
    mStale = false;
    ++fake_word_control()->layouts;
    paint();
}

void FakeWordDocument::paint() {
    FakeWordControl& control = *fake_word_control();
    control.layout = mLayout;
    ++control.repaints;
    if (mPixels == nullptr) {
        return;
    }
    uint32_t* pixel = mPixels;
    for (int32_t y = 0; y < mLayout.height; ++y) {
        const int64_t row = mLayout.top + y;
        if (row >= mLayout.rows) {
            pixel = std::fill_n(pixel, mLayout.width, FAKE_WORD_WHITE);
            continue;
        }
        for (int32_t x = 0; x < mLayout.width; ++x) {
            *pixel++ = fakeWordPixel(row, x);
        }
    }
}

int64_t FakeWordDocument::lineOf(uint32_t position) const {
    return std::min(lines() - 1, int64_t{position} * lines() / mCharacters);
}

uint32_t FakeWordDocument::firstCharacterOf(int64_t line) const {
    return static_cast<uint32_t>((line * mCharacters + lines() - 1) / lines());
}

uint32_t FakeWordDocument::characterAtTop() const {
    const int64_t line = (mLayout.top + mLayout.lineRows - 1) / mLayout.lineRows;
    return firstCharacterOf(std::min(line, lines() - 1));
}

uint32_t FakeWordDocument::topLeft() {
    layOut();
    return mLayout.top == 0 ? 0 : std::max(1U, characterAtTop());
}

uint32_t FakeWordDocument::bottomRight() {
    layOut();
    const int64_t end = mLayout.top + mLayout.height;
    return end >= mLayout.rows ? mCharacters : firstCharacterOf(end / mLayout.lineRows);
}

int32_t FakeWordDocument::usedRows() {
    layOut();
    return static_cast<int32_t>(std::clamp<int64_t>(mLayout.rows - mLayout.top, 0, mLayout.height));
}

bool FakeWordDocument::scrollDown(int32_t rows) {
    layOut();
    if (mLayout.top + mLayout.height >= mLayout.rows) {
        return false;
    }
    mLayout.top += rows;
    paint();
    return true;
}

int32_t FakeWordDocument::scrollUp(int32_t rows) {
    layOut();
    const auto moved = static_cast<int32_t>(std::min<int64_t>(rows, mLayout.top));
    mLayout.top -= moved;
    paint();
    return moved;
}

void FakeWordDocument::jump(uint32_t position) {
    layOut();
    mLayout.top = lineOf(position) * mLayout.lineRows;
    paint();
}

int64_t FakeWordDocument::lineAt(int32_t y) {
    layOut();
    return std::clamp<int64_t>((mLayout.top + y) / mLayout.lineRows, 0, lines() - 1);
}

module_rect FakeWordDocument::lineRectangle(int64_t line) const {
    return {0, static_cast<int32_t>(line * mLayout.lineRows - mLayout.top), mLayout.width,
            static_cast<int32_t>(mLayout.lineRows)};
}

std::vector<module_rect> FakeWordDocument::rectangles(const FakeWordHit& hit) {
    layOut();
    std::vector<module_rect> list;
    for (int32_t line = 0; line < hit.lines; ++line) {
        const int64_t row = (lineOf(hit.start) + line) * mLayout.lineRows - mLayout.top;
        list.push_back({hit.x, static_cast<int32_t>(row), hit.width, static_cast<int32_t>(mLayout.lineRows)});
    }
    return list;
}

bool FakeWordDocument::isInStretch(const module_rect& rectangle) const {
    return rectangle.y + rectangle.height > 0 && rectangle.y < mLayout.height;
}

void FakeWordDocument::paintSecondary(int32_t height) {
    for (int32_t y = 0; y < mBufferHeight; ++y) {
        const bool text = y >= 50 && y < 50 + height;
        std::fill_n(mBuffer + int64_t{y} * mBufferWidth, mBufferWidth,
                    text ? fakeSecondaryPixel(y) : FAKE_WORD_WHITE);
    }
}

int32_t fakeSelect(uint32_t start, uint32_t end) {
    fake_word_control()->selectionStart = start;
    fake_word_control()->selectionEnd = end;
    return 0;
}

std::u16string fakeNumbers(uint32_t start, uint32_t end) {
    const std::string text = std::to_string(start) + "-" + std::to_string(end);
    return {text.begin(), text.end()};
}
