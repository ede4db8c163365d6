// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "base/Pending.h"
#include "client/gtk4/Geometry.h"

#include <gtk/gtk.h>
#include <lectern-glib/lectern-glib.h>

namespace lectern::gtk4 {

// What the parts of a view share: the widget, its document, the pixels of its screen.
class ViewContext {
public:
    explicit ViewContext(GtkWidget* widget);
    ViewContext(const ViewContext&) = delete;
    ViewContext& operator=(const ViewContext&) = delete;

    GtkWidget* widget() const { return mWidget; }
    // Null without one.
    LecternDocument* document() const { return mDocument.get(); }
    void setDocument(LecternDocument* document);
    // The document if it can be asked, else null.
    LecternDocument* openDocument() const;
    bool isOf(LecternDocumentKind kind) const;

    // Connects a signal of whatever document the view has, as g_signal_connect_swapped.
    // REQUIRES: no document yet; it has none any more when `self` ends.
    void onDocument(const char* signal, GCallback handler, void* self);

    PixelGrid grid() const;
    // Dots per inch of the screen in device pixels, or those that the program has set.
    double dpi() const;
    // 0: those of the screen.
    void setDpi(double dpi) { mDpi = dpi; }
    double wantedDpi() const { return mDpi; }

    bool isPresenting() const { return mIsPresenting; }
    void setPresenting(bool isPresenting) { mIsPresenting = isPresenting; }

private:
    GtkWidget* mWidget;
    GLibHolder<LecternDocument> mDocument;
    GLibHolder<GSignalGroup> mSignals;
    double mDpi = 0;
    bool mIsPresenting = false;
};

} // namespace lectern::gtk4
