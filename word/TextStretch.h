// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/Singleton.h"
#include "modules/WTGFunc.h"
#include "raster/CpPixmap.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

// The cache: the stretch of the text that the module keeps rendered, its
// surface, and where it lies among the document's rows.
//
// The invariants, which everything above relies on:
//
//  - A document row is a row of the laid-out text, counted from 0. The surface
//    carries its place in its bounds: top is the document row of its first
//    pixel row and bottom that just past its last row of text, so that what
//    lies between the two is text and nothing else ever gets copied.
//  - top and bottom change only here, and only together with the module's
//    stretch. Nobody else moves that.
//  - Rows are the text's own only as long as every move of the stretch since
//    the text's first row was one of known size. After a jump, or a new layout
//    of a stretch from further down, top is a guess.
//    The first move that shows character 0 settles it: that is row 0. Such a
//    renumbering, and one that keeps top from going below 0, moves no pixel:
//    whoever remembers rows is told how many to add, and all of them are moved
//    by the same amount.
//  - While the stretch is not full no text lies below it, and while it is
//    numbered and top is 0 none lies above. Neither is then asked of the module.
//
// A move may fail; the module, or the engine behind it, may be gone. Then
// nothing changes, and callers that repeat moves stop.
//
// No call but the constructor's is allowed before open(), and none but layOut()
// while there is no surface.
class TextStretch {
public:
    // A stretch's measures in pixels. step is what a move is by default.
    struct Size {
        int width = 0;
        int height = 0;
        int step = 0;
    };
    // The measures for a layout that wide: about 500,000 pixels whatever the
    // width, but always clearly more rows than the view shows.
    static Size sizeFor(double layoutWidth, int viewHeight);

    // onRenumber is told how much was added to every document row.
    explicit TextStretch(std::function<void(int)> onRenumber) : mOnRenumber(std::move(onRenumber)) {}

    // The document stays the caller's. characterCount is that of the whole text.
    void open(void* doc, uint32_t characterCount);
    // Makes a new surface and has the text laid out for it, with its first
    // row at row 0. The module keeps the character at the stretch's top there.
    // Where the module refuses that surface the one before stays, laid out
    // anew; without one, the module's code is returned.
    int32_t layOut(const Size& size, int dpi);
    // Gives the stretch its place among the rows, after a layout or a jump.
    void place(int top) { setPlace(top, used()); }
    // Points the module at the surface, for a caller that pointed it elsewhere.
    // False when the module refuses it: every later question and move tries
    // again first.
    bool useSurface();

    // Starts the stretch at a character's line, as row 0; false when that fails.
    bool jump(int32_t story, uint32_t character);
    // By exactly so many rows, also past the end; false when it did not move.
    bool moveDown(int rows);
    // As moveDown(), but top and bottom move whether or not the module did.
    void advance(int rows);
    // By so many rows, or what there is above; false when it did not move.
    bool moveUp(int rows);

    // Whether text lies above and below; these ask the module unless it is known.
    bool textAbove();
    bool textBelow();
    // These ask in every case. Text that the module cannot tell of is none.
    bool askTextAbove();
    bool askTextBelow();

    // The character at the top; asks the module at most once after a move.
    uint32_t topCharacter();
    uint32_t characterCount() const { return mCharacterCount; }

    CpPixmap* surface() { return mSurface.get(); }
    int top() const { return mSurface->Top(); }
    int bottom() const { return mSurface->Bottom(); }
    int used() const { return mSurface->Height(); }
    const Size& size() const { return mSize; }
    bool isFull() const { return used() == mSize.height; }
    // Another number after each move and layout.
    unsigned generation() const { return mGeneration; }

private:
    int32_t replaceSurface(const Size& size);
    bool isInUse() { return mInUse || useSurface(); }
    std::optional<uint32_t> topLeft();
    std::optional<uint32_t> bottomRight();
    int askUsedRows();
    bool scrollDown(int rows);
    void moveTop(int rows);
    void setPlace(int top, int usedRows);
    void noteMove();
    void renumber(int rows);

    WTGFunc& mModule = Singleton<WTGFunc>::Instance();
    std::function<void(int)> mOnRenumber;
    void* mDoc = nullptr;
    uint32_t mCharacterCount = 0;
    std::unique_ptr<CpPixmap> mSurface; // null until the module has taken one
    bool mInUse = false;                // the module paints into it
    Size mSize;
    bool mNumbered = true;
    bool mAtEnd = false; // the stretch is known to hold the last character
    bool mTopCharacterKnown = true;
    uint32_t mTopCharacter = 0;
    unsigned mGeneration = 0;
};
