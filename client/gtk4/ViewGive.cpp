// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewGive.h"

#include <utility>

namespace lectern::gtk4 {

ViewGive::ViewGive(ViewContext& context) : mContext(context) {
    mContext.onDocument("overscroll", G_CALLBACK(onOverscroll), this);
}

ViewGive::~ViewGive() {
    stopTicks();
}

void ViewGive::reset() {
    stopTicks();
    mGive.end();
}

void ViewGive::stopTicks() {
    if (mTick != 0) {
        gtk_widget_remove_tick_callback(mContext.widget(), std::exchange(mTick, 0));
    }
}

void ViewGive::onOverscroll(gpointer self, int x, int y) {
    auto* give = static_cast<ViewGive*>(self);
    GtkWidget* widget = give->mContext.widget();
    if (x == 0 && y == 0) {
        give->release();
    } else {
        give->stopTicks();
        give->mGive.pull(
            {static_cast<double>(x), static_cast<double>(y)},
            give->mContext.grid().picture(gtk_widget_get_width(widget), gtk_widget_get_height(widget)));
    }
    gtk_widget_queue_draw(widget);
}

void ViewGive::release() {
    gboolean isAnimated = FALSE;
    g_object_get(gtk_widget_get_settings(mContext.widget()), "gtk-enable-animations", &isAnimated, nullptr);
    if (isAnimated == FALSE) {
        mGive.end();
    } else if (mTick == 0 && mGive.offset() != Point()) {
        mTickTime = 0;
        mTick = gtk_widget_add_tick_callback(mContext.widget(), onTick, this, nullptr);
    }
}

gboolean ViewGive::onTick(GtkWidget* widget, GdkFrameClock* clock, gpointer self) {
    auto* give = static_cast<ViewGive*>(self);
    const gint64 now = gdk_frame_clock_get_frame_time(clock);
    if (give->mTickTime != 0) {
        give->mGive.relax(static_cast<double>(now - give->mTickTime) / G_USEC_PER_SEC);
        gtk_widget_queue_draw(widget);
    }
    give->mTickTime = now;
    if (give->mGive.offset() != Point()) {
        return G_SOURCE_CONTINUE;
    }
    give->mTick = 0;
    return G_SOURCE_REMOVE;
}

} // namespace lectern::gtk4
