// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/Give.h"
#include "client/gtk4/ViewContext.h"

namespace lectern::gtk4 {

// Lets the picture give a little at the document's edges, and brings it back.
class ViewGive {
public:
    explicit ViewGive(ViewContext& context);
    ~ViewGive();
    ViewGive(const ViewGive&) = delete;
    ViewGive& operator=(const ViewGive&) = delete;

    // In whole device pixels.
    Point offset() const { return {std::round(mGive.offset().x), std::round(mGive.offset().y)}; }
    void reset();

private:
    static void onOverscroll(gpointer self, int x, int y);
    static gboolean onTick(GtkWidget* widget, GdkFrameClock* clock, gpointer self);
    void release();
    void stopTicks();

    ViewContext& mContext;
    Give mGive;
    guint mTick = 0;
    gint64 mTickTime = 0; // microseconds
};

} // namespace lectern::gtk4
