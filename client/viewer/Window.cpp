// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Window.h"

namespace lectern::viewer {

Window::Window(GtkApplication* application) : mView(LECTERN_VIEW(lectern_view_new())) {
    gtk_window_set_application(window(), application);
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(mUi.object("scroller")), GTK_WIDGET(mView));
    fillPlaces();
}

// The widgets go before the parts that hear from them.
Window::~Window() {
    gtk_window_destroy(window());
}

// Parts come here: one line each.
void Window::fillPlaces() {}

void Window::say(const std::string& message) {
    AdwToast* toast = adw_toast_new("");
    adw_toast_set_title(toast, GLibHolder<char>(g_markup_escape_text(message.c_str(), -1)).get());
    adw_toast_overlay_add_toast(toasts(), toast);
}

void Window::open(GFile* /*file*/) {}

LecternDocument* Window::document() {
    LecternDocument* shown = lectern_view_get_document(mView);
    return shown != nullptr && lectern_document_get_opened(shown) != FALSE ? shown : nullptr;
}

} // namespace lectern::viewer
