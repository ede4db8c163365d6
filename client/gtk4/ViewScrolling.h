// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/LatestCall.h"
#include "client/gtk4/ViewContext.h"
#include "client/gtk4/ViewPainting.h"

namespace lectern::gtk4 {

// Keeps the adjustments of a scrolled window and the document's place equal: they show
// the place of the picture, and moving them moves the document.
class ViewScrolling {
public:
    ViewScrolling(ViewContext& context, const ViewPainting& painting);
    ~ViewScrolling();
    ViewScrolling(const ViewScrolling&) = delete;
    ViewScrolling& operator=(const ViewScrolling&) = delete;

    GtkAdjustment* adjustment(GtkOrientation orientation) const;
    // With null the view gets one of its own.
    void setAdjustment(GtkOrientation orientation, GtkAdjustment* adjustment);

    // The document, its place, or the widget's size has changed.
    void sync();
    // A picture has arrived, and with it the place of the document.
    void pictureArrived();
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
    const ViewPainting& mPainting;
    GLibHolder<GtkAdjustment> mHorizontal;
    GLibHolder<GtkAdjustment> mVertical;
    LatestCall<Point> mScrollTo;
    // Pictures until one shows the place that the document was moved to.
    int mPicturesAwaited = 0;
    bool mIsSyncing = false;
    Pending mPending;
};

} // namespace lectern::gtk4
