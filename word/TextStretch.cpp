// SPDX-License-Identifier: Apache-2.0
#include "word/TextStretch.h"

#include "raster/Saturate.h"

#include <algorithm>
#include <utility>

namespace {
constexpr double SURFACE_PIXELS = 500000.0;
} // namespace

TextStretch::Size TextStretch::sizeFor(double layoutWidth, int viewHeight) {
    Size size;
    size.height = saturateToInt(SURFACE_PIXELS / layoutWidth);
    size.step = size.height / 3;
    size.height += size.height % 2;
    if (4LL * size.height < 5LL * viewHeight) {
        size.height = saturateToInt((3LL * viewHeight + 1) / 2);
        size.height += size.height % 2;
        size.step = size.height / 3;
    }
    size.step = std::max(1, size.step);
    size.width = saturateToInt(layoutWidth);
    size.width += size.width % 2;
    return size;
}

void TextStretch::open(void* doc, uint32_t characterCount) {
    mDoc = doc;
    mCharacterCount = characterCount;
}

int32_t TextStretch::layOut(const Size& size, int dpi) {
    const bool isFirst = mSurface == nullptr;
    const Size sizeBefore = mSize;
    std::unique_ptr<CpPixmap> before; // the surface that was replaced
    if (const int32_t refused = replaceSurface(size, before); refused != 0) {
        if (isFirst) {
            return refused;
        }
        useSurface();
    }
    ++mGeneration;
    mModule.wtg_set_dpi(mDoc, dpi);
    // The module lays the text out when it is asked for a place.
    uint32_t last = 0;
    const int32_t result = bottomRight(last);
    if (result != 0 && !isFirst) {
        if (before != nullptr) {
            mSurface = std::move(before);
            mSize = sizeBefore;
            useSurface();
        }
        mModule.wtg_set_dpi(mDoc, mDpi);
        return result;
    }
    mDpi = dpi;
    mNumbered = mNumbered && (isFirst || (before != nullptr ? *before : *mSurface).Top() == 0);
    mAtEnd = result == 0 && last == mCharacterCount;
    setPlace(0, mAtEnd ? askUsedRows() : mSize.height);
    return result;
}

// Keeps the previous surface until the module has accepted the new one, because the
// module may write to its current buffer until then.
int32_t TextStretch::replaceSurface(const Size& size, std::unique_ptr<CpPixmap>& before) {
    auto surface = std::make_unique<CpPixmap>(size.width, size.height);
    const int32_t result =
        mModule.wtg_set_offscreen_buffer(mDoc, 0, surface->Pixels(), size.width, size.height);
    mRefusal = result;
    if (mRefusal == 0) {
        before = std::exchange(mSurface, std::move(surface));
        mSize = size;
    }
    return result;
}

bool TextStretch::useSurface() {
    mRefusal = mModule.wtg_set_offscreen_buffer(mDoc, 0, mSurface->Pixels(), mSize.width, mSize.height);
    return mRefusal == 0;
}

bool TextStretch::jump(int32_t story, uint32_t character) {
    if (!isInUse() || mModule.wtg_jump_to_character(mDoc, story, character) != 0) {
        return false;
    }
    noteMove(); // the first character of that line may be another one
    mNumbered = story == 0 && character == 0;
    setPlace(0, askUsedRows());
    return true;
}

bool TextStretch::moveDown(int rows) {
    if (!scrollDown(rows)) {
        return false;
    }
    moveTop(rows);
    return true;
}

void TextStretch::advance(int rows) {
    if (!scrollDown(rows)) {
        mNumbered = false;
    }
    moveTop(rows);
}

bool TextStretch::scrollDown(int rows) {
    int32_t scrolled = 0;
    return isInUse() && mModule.wtg_scroll_down(mDoc, 0, rows, &scrolled) == 0 && scrolled > 0;
}

void TextStretch::moveTop(int rows) {
    noteMove();
    setPlace(saturatedSum(top(), rows), askUsedRows());
}

bool TextStretch::moveUp(int rows) {
    const bool wasFull = isFull();
    int32_t scrolled = 0;
    if (!isInUse() || mModule.wtg_scroll_up(mDoc, 0, rows, &scrolled) != 0 || scrolled <= 0) {
        return false;
    }
    noteMove();
    setPlace(saturatedDifference(top(), scrolled), wasFull ? mSize.height : askUsedRows());
    if (!mNumbered) {
        askTextAbove();
    }
    if (top() < 0) {
        renumber(saturatedDifference(0, top()));
    }
    return true;
}

bool TextStretch::textAbove() {
    return mNumbered ? top() > 0 : askTextAbove();
}

bool TextStretch::textBelow() {
    return isFull() && !mAtEnd && askTextBelow();
}

bool TextStretch::askTextAbove() {
    const std::optional<uint32_t> character = topLeft();
    if (character != 0U) {
        return character.has_value();
    }
    mNumbered = true;
    if (top() != 0) {
        renumber(saturatedDifference(0, top()));
    }
    return false;
}

bool TextStretch::askTextBelow() {
    uint32_t end = 0;
    const bool known = bottomRight(end) == 0;
    mAtEnd = known && end >= mCharacterCount;
    return known && !mAtEnd;
}

uint32_t TextStretch::topCharacter() {
    if (mNumbered && top() == 0) {
        return 0;
    }
    if (!mTopCharacterKnown) {
        topLeft();
    }
    return mTopCharacter;
}

std::optional<uint32_t> TextStretch::topLeft() {
    uint32_t character = 0;
    if (!isInUse() || mModule.wtg_get_top_left_character(mDoc, 0, &character) != 0) {
        return std::nullopt;
    }
    mTopCharacter = character;
    mTopCharacterKnown = true;
    return character;
}

int32_t TextStretch::bottomRight(uint32_t& character) {
    return isInUse() ? mModule.wtg_get_bottom_right_character(mDoc, 0, &character) : mRefusal;
}

// At most the rows of the surface. If the module fails, the number is unchanged,
// because it has not repainted either.
int TextStretch::askUsedRows() {
    int32_t rows = used();
    mModule.wtg_get_vertical_last_used_pixel(mDoc, 0, &rows);
    return std::clamp(rows, 0, mSize.height);
}

void TextStretch::setPlace(int top, int usedRows) {
    mSurface->Set(0, top, mSize.width, saturatedSum(top, usedRows));
}

void TextStretch::noteMove() {
    ++mGeneration;
    mAtEnd = false;
    mTopCharacterKnown = false;
}

void TextStretch::renumber(int rows) {
    setPlace(saturatedSum(top(), rows), used());
    mOnRenumber(rows);
}
