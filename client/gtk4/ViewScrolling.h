// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/LatestCall.h"
#include "client/gtk4/ViewContext.h"

namespace lectern::gtk4 {

// Keeps the adjustments of a scrolled window and the document's place equal: they show
// the place of the picture, and moving them moves the document.
class ViewScrolling {
public:
    explicit ViewScrolling(ViewContext& context);
    ~ViewScrolling();
    ViewScrolling(const ViewScrolling&) = delete;
    ViewScrolling& operator=(const ViewScrolling&) = delete;

    GtkAdjustment* adjustment(GtkOrientation orientation) const;
    // With null the view gets one of its own.
    void setAdjustment(GtkOrientation orientation, GtkAdjustment* adjustment);

    // The document, its place, or the widget's size has changed.
    void sync();
    void reset();
    // Moves the document as the adjustments did.
    void scrollTo(Point place);

private:
    GLibHolder<GtkAdjustment>& holder(GtkOrientation orientation);
    void release(GtkOrientation orientation);
    void valueChanged();
    void scroll();
    void scrolled(GObject* source, GAsyncResult* result);

    ViewContext& mContext;
    GLibHolder<GtkAdjustment> mHorizontal;
    GLibHolder<GtkAdjustment> mVertical;
    LatestCall<Point> mScrollTo;
    bool mIsSyncing = false;
    Pending mPending;
};

} // namespace lectern::gtk4
