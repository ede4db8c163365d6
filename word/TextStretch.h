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
//    stretch, which no other code moves.
//  - Row numbers are exact only as long as every move of the stretch since the
//    text's first row had a known distance (mNumbered). After a jump, or a new
//    layout of a stretch from further down, top is a guess.
//    The first move that shows character 0 settles it: that is row 0. Such a
//    renumbering, and one that keeps top from going below 0, moves no pixel:
//    onRenumber is called with the number to add to every stored row.
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
    // The size of a stretch in pixels. `step` is the default distance of a move.
    struct Size {
        int width = 0;
        int height = 0;
        int step = 0;
    };
    // The size for a layout of this width: about 500,000 pixels, but always clearly
    // more rows than the view shows.
    static Size sizeFor(double layoutWidth, int viewHeight);

    // onRenumber is called with the number that was added to every document row.
    explicit TextStretch(std::function<void(int)> onRenumber) : mOnRenumber(std::move(onRenumber)) {}

    // The caller keeps the ownership of doc, which must outlive this object's use.
    // characterCount is that of the whole text.
    void open(void* doc, uint32_t characterCount);
    // Creates a new surface and lays the text out for it and dpi. Its first row gets
    // row 0; the module keeps the character at the stretch's top. If the module
    // refuses the surface, keeps the previous one and lays the text out for that.
    // Returns 0 or the module's code: then the stretch is as before; if it was the first
    // layout, there is no surface, or it was not painted.
    int32_t layOut(const Size& size, int dpi);
    // Sets the document row of the stretch's top, after a layout or a jump.
    void place(int top) { setPlace(top, used()); }
    // Gives the module the surface again, after the caller gave it another buffer.
    // False if the module refuses it; then every later query and move tries again.
    bool useSurface();

    // Moves the stretch to the line of a character, which becomes row 0. False if the
    // module fails.
    bool jump(int32_t story, uint32_t character);
    // Moves down by exactly `rows`, also past the end of the text. False if the module
    // did not move.
    bool moveDown(int rows);
    // Like moveDown(), but changes top and bottom also if the module did not move.
    void advance(int rows);
    // Moves up by `rows`, or to the start of the text if that is nearer. False if the
    // module did not move.
    bool moveUp(int rows);

    // Whether there is text above or below. These ask the module only if the answer is
    // not known.
    bool textAbove();
    bool textBelow();
    // The same, but these always ask the module. False if it fails.
    bool askTextAbove();
    bool askTextBelow();

    // The character at the stretch's top. Asks the module at most once after a move.
    uint32_t topCharacter();
    uint32_t characterCount() const { return mCharacterCount; }

    CpPixmap* surface() { return mSurface.get(); }
    int top() const { return mSurface->Top(); }
    int bottom() const { return mSurface->Bottom(); }
    int used() const { return mSurface->Height(); }
    const Size& size() const { return mSize; }
    bool isFull() const { return used() == mSize.height; }
    // A number that changes with each move and layout.
    unsigned generation() const { return mGeneration; }

private:
    int32_t replaceSurface(const Size& size, std::unique_ptr<CpPixmap>& before);
    bool isInUse() { return mRefusal == 0 || useSurface(); }
    std::optional<uint32_t> topLeft();
    // Returns 0 or the module's code.
    int32_t bottomRight(uint32_t& character);
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
    std::unique_ptr<CpPixmap> mSurface; // null until the module has accepted one
    int32_t mRefusal = -1;              // the module's code for it; 0 while it paints into it
    Size mSize;
    int mDpi = 0;
    bool mNumbered = true;
    bool mAtEnd = false; // the stretch is known to hold the last character
    bool mTopCharacterKnown = true;
    uint32_t mTopCharacter = 0;
    unsigned mGeneration = 0;
};
