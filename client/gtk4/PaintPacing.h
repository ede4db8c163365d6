// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::gtk4 {

// Decides when a paint begins: at once when something has changed, but one at a time,
// at most one in a frame of the screen, and none while nobody sees the view.
class PaintPacing {
public:
    // The document has changed.
    void want() { mIsWanted = true; }
    // The view is on the screen or no longer is.
    void show(bool isShown) { mIsShown = isShown; }
    // The picture has arrived; the next paint waits for a tick of the frame clock.
    void finish() {
        mIsPainting = false;
        mAwaitsTick = true;
    }
    void tick() { mAwaitsTick = false; }
    // Forgets a paint that will not finish.
    void giveUp() { mIsPainting = false; }

    bool isPainting() const { return mIsPainting; }

    // True if a paint is to begin now, which then counts as begun.
    bool begin() {
        if (!mIsWanted || !mIsShown || mIsPainting || mAwaitsTick) {
            return false;
        }
        mIsWanted = false;
        mIsPainting = true;
        return true;
    }

private:
    bool mIsWanted = false;
    bool mIsShown = false;
    bool mIsPainting = false;
    bool mAwaitsTick = false;
};

} // namespace lectern::gtk4
