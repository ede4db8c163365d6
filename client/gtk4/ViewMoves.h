// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/KeyMoves.h"
#include "client/gtk4/ViewContext.h"
#include "client/gtk4/ViewScrolling.h"
#include "client/gtk4/ViewZoom.h"

namespace lectern::gtk4 {

// Moves of the document that wheels, trackpads and keys ask for.
class ViewMoves {
public:
    ViewMoves(ViewContext& context, ViewScrolling& scrolling, ViewZoom& zoom);

    // By device pixels; parts of pixels add up.
    void scrollBy(Point way);
    // To the slide or sheet after or before the current one.
    void turn(int way);
    void make(KeyMove move);
    void reset();

private:
    static gboolean onKey(GtkEventControllerKey* keys, guint key, guint code, GdkModifierType modifiers,
                          gpointer self);
    static gboolean onScroll(GtkEventControllerScroll* scroll, double dx, double dy, gpointer self);
    static void onDecelerate(GtkEventControllerScroll* scroll, double vx, double vy, gpointer self);
    static void onPointer(GtkEventControllerMotion* motion, double x, double y, gpointer self);

    ViewContext& mContext;
    ViewScrolling& mScrolling;
    ViewZoom& mZoom;
    Point mRest;
    Point mPointer;
    Pending mPending;
};

} // namespace lectern::gtk4
