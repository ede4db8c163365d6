// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

namespace lectern::viewer {

// A window that fills the screen and shows nothing but the document. The header comes
// back over the document while the pointer is at the top edge, or with a tap on a free
// place.
class FullScreen : public Part {
public:
    // top: holds the header. bottom: holds the bar below the document. Both outlive this.
    FullScreen(Shell& shell, AdwFlap* top, GtkRevealer* bottom);

    // FALSE: neither taps nor the pointer bring the header back.
    void setHeaderComesBack(bool comesBack) { mHeaderComesBack = comesBack; }
    // monitor: where to, or null for the window's own.
    void enter(GdkMonitor* monitor);
    void leave() { gtk_window_unfullscreen(shell().window()); }

protected:
    void show(LecternDocument* /*document*/) override {}

private:
    void addControllers();
    void toggle();
    void follow();
    void onTap();
    void reveal(bool shown);
    static gboolean onKey(GtkEventControllerKey* keys, guint key, guint code, GdkModifierType modifiers,
                          void* self);
    static void onMotion(GtkEventControllerMotion* motion, double x, double y, void* self);
    void onPointerAt(double y);
    bool isFull() const { return gtk_window_is_fullscreen(shell().window()) != FALSE; }

    AdwFlap* mTop;
    GtkRevealer* mBottom;
    GSimpleAction* mFullScreen;
    bool mHeaderComesBack = true;
};

} // namespace lectern::viewer
