// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/LatestCall.h"
#include "client/gtk4/SelectionReach.h"
#include "client/gtk4/ViewContext.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lectern::gtk4 {

// The selection in the document: makes it, follows it on the screen and copies it.
class ViewSelection {
public:
    // onChange: called when there is a selection or no longer one, and when it has moved.
    ViewSelection(ViewContext& context, std::function<void()> onChange);
    ViewSelection(const ViewSelection&) = delete;
    ViewSelection& operator=(const ViewSelection&) = delete;

    void reset();

    // Whether there is something to copy: a selection, or a tapped cell.
    bool exists() const { return !mText.empty() || mHasCell; }
    const std::string& text() const { return mText; }
    // Where it stands in the view, in reading order; may be empty.
    const std::vector<LecternRectangle>& rectangles() const { return mRectangles; }

    // onDone: called with whether there was something at the point.
    void select(LecternSelectUnit unit, Point at, std::function<void(bool)> onDone = {});
    void clear();
    void copy();

    // The selection then reaches from the anchor to wherever the pointer is.
    void beginReach(const SelectionReach::Anchor& anchor);
    void reachTo(Point at);

    // Asks where it stands now, after the document has come to rest at another place.
    void refresh();
    // The document has moved by a way: so have the rectangles.
    void move(Point way);

private:
    void selected(GObject* source, GAsyncResult* result);
    void step();
    void stepped(GObject* source, GAsyncResult* result);
    void read();
    void wasRead(GObject* source, GAsyncResult* result);
    void set(std::string text, std::vector<LecternRectangle> rectangles);
    void noteCell();
    void copied(GObject* source, GAsyncResult* result);
    void copiedCell(GObject* source, GAsyncResult* result);

    ViewContext& mContext;
    std::function<void()> mOnChange;
    std::function<void(bool)> mOnSelected;
    std::string mText;
    std::vector<LecternRectangle> mRectangles;
    bool mHasCell = false;
    std::optional<SelectionReach> mReach;
    LatestCall<Point> mReachTo;
    size_t mStepsLeft = 0;
    LatestCall<bool> mRead;
    Pending mSelecting;
    Pending mPending;
};

} // namespace lectern::gtk4
