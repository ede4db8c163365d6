// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/fakes/word/FakeWordModule.h"

// A text, and the stretch of it that a buffer shows.
class FakeWordDocument {
public:
    FakeWordDocument(int64_t rows, uint32_t characters, int32_t lineHeight);

    void setBuffer(uint32_t* pixels, int32_t width, int32_t height);
    void setDpi(int32_t dpi);

    // Each of these functions first lays the text out when its layout is outdated.
    uint32_t topLeft();
    uint32_t bottomRight();
    int32_t usedRows();
    bool scrollDown(int32_t rows);
    int32_t scrollUp(int32_t rows);
    void jump(uint32_t position);
    // The rows of a hit in buffer pixels, including those outside of the stretch.
    std::vector<module_rect> rectangles(const FakeWordHit& hit);
    bool isInStretch(const module_rect& rectangle) const;
    void paintSecondary(int32_t height);
    const FakeWordLayout& layout() {
        layOut();
        return mLayout;
    }
    // The line at a buffer row, from 0, and its first character.
    int64_t lineAt(int32_t y);
    uint32_t characterOf(int64_t line) const { return firstCharacterOf(line); }
    int64_t lineCount() const { return lines(); }
    module_rect lineRectangle(int64_t line) const;

    uint32_t characters() const { return mCharacters; }

    // The returned results, kept as long as the module's rules require.
    std::vector<wtg_find_result> results;
    std::vector<FakeWordHit> found;
    std::vector<std::vector<module_rect>> regionRectangles;
    std::vector<wtg_find_region> regions;
    wtg_click_info click{};
    std::vector<module_rect> selectionRectangles;
    std::vector<std::u16string> lineTexts;
    std::vector<wtg_text_line> lineRecords;
    std::vector<wtg_outline_entry> outline;

private:
    void markStale();
    void layOut();
    void paint();
    int64_t lines() const { return mLayout.rows / mLayout.lineRows; }
    int64_t lineOf(uint32_t position) const;
    uint32_t firstCharacterOf(int64_t line) const;
    uint32_t characterAtTop() const;

    const int64_t mRowsAtFirst;
    const uint32_t mCharacters;
    const int32_t mLineHeight;
    int32_t mFirstWidth = 0;
    FakeWordLayout mLayout;
    uint32_t* mPixels = nullptr;
    // While a pop-up's buffer is set, the layout is still that of the page's buffer.
    uint32_t* mBuffer = nullptr;
    int32_t mBufferWidth = 0;
    int32_t mBufferHeight = 0;
    bool mStale = false;
    uint32_t mAnchor = 0; // a new layout keeps this character at the top
};

// Sets the selection. Always returns MODULE_OK.
int32_t fakeSelect(uint32_t start, uint32_t end);
// The text of these characters: their numbers, as in "7-19".
std::u16string fakeNumbers(uint32_t start, uint32_t end);
