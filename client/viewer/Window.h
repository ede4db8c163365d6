// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Ui.h"

namespace lectern::viewer {

// A window: its pages, and the parts of the page that shows a document.
class Window : public Shell {
public:
    explicit Window(GtkApplication* application);
    ~Window() override;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    GtkWindow* window() override { return GTK_WINDOW(mUi.object("window")); }
    LecternView* view() override { return mView; }
    LecternDocument* document() override;
    GActionMap* actions() override { return G_ACTION_MAP(mUi.object("window")); }
    void say(const std::string& message) override;
    void open(GFile* file) override;
    AdwToastOverlay* toasts() override { return ADW_TOAST_OVERLAY(mUi.object("toasts")); }

private:
    // Puts a part's widget into a place of window.ui: an AdwBin.
    void fill(const char* place, GtkWidget* widget) { adw_bin_set_child(ADW_BIN(mUi.object(place)), widget); }
    AdwFlap* flap() { return ADW_FLAP(mUi.object("flap")); }
    // Lays a part's widget over the document.
    void overlay(GtkWidget* widget) { gtk_overlay_add_overlay(GTK_OVERLAY(mUi.object("overlay")), widget); }
    void fillPlaces();

    Ui mUi{"window.ui"};
    LecternView* mView; // owned by the scrolled window
};

} // namespace lectern::viewer
