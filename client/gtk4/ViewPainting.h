// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/PaintPacing.h"
#include "client/gtk4/ViewContext.h"
#include "client/gtk4/ViewFrames.h"

#include <functional>

namespace lectern::gtk4 {

// Paints when the document has changed, in step with the frame clock.
class ViewPainting {
public:
    // onPicture: called when a picture has arrived, before it is drawn.
    ViewPainting(ViewContext& context, std::function<void()> onPicture);
    ~ViewPainting();
    ViewPainting(const ViewPainting&) = delete;
    ViewPainting& operator=(const ViewPainting&) = delete;

    // Forgets the picture of the document before.
    void reset();
    // Whether the view is on the screen.
    void show(bool isShown);
    void want();
    bool isPainting() const { return mPacing.isPainting(); }
    const ViewFrames& frames() const { return mFrames; }

private:
    void paint();
    void painted(GObject* source, GAsyncResult* result);
    void awaitTick();
    static gboolean onTick(GtkWidget* widget, GdkFrameClock* clock, gpointer self);

    ViewContext& mContext;
    std::function<void()> mOnPicture;
    PaintPacing mPacing;
    ViewFrames mFrames;
    guint mTick = 0;
    Pending mPending;
};

} // namespace lectern::gtk4
