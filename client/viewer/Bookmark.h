// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/History.h"
#include "client/viewer/Pending.h"
#include "client/viewer/Ui.h"

#include <functional>
#include <optional>

namespace lectern::viewer {

// Keeps the place of a window's document in the history, and returns to it.
class Bookmark {
public:
    Bookmark(Shell& shell, History& history);
    ~Bookmark() { keep(); }
    Bookmark(const Bookmark&) = delete;
    Bookmark& operator=(const Bookmark&) = delete;

    // Notes that the document was opened, moves to where it was left, and calls onDone.
    void restore(std::function<void()> onDone);
    // Writes the place now. Otherwise it is written some seconds after a move.
    void keep();

private:
    void moved();
    void zoom(GObject* source, GAsyncResult* result);
    void scroll(GObject* source, GAsyncResult* result);
    void finish(GObject* source, GAsyncResult* result);
    void reachFurther();

    Shell& mShell;
    History& mHistory;
    GLibHolder<GSignalGroup> mSignals;
    std::function<void()> mOnDone;
    Place mTarget;
    bool mShort = false; // the view did not reach the place
    gint64 mReach = 0;   // how far it could go then
    bool mMoved = false;
    guint mTimer = 0;
    Pending mPending;
};

} // namespace lectern::viewer
