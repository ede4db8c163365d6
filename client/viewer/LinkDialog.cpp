// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/LinkDialog.h"

#include "client/viewer/Links.h"

namespace lectern::viewer {

// The view ends before the parts of the window.
LinkDialog::LinkDialog(Shell& shell) : mShell(shell) {
    g_signal_connect_swapped(shell.view(), "link-activated", handler<&LinkDialog::ask>(), this);
}

void LinkDialog::ask(const char* address) {
    const Ui ui("link-dialog.ui");
    auto* dialog = ADW_MESSAGE_DIALOG(ui.object(mayOpenLink(address) ? "question" : "refusal"));
    gtk_window_set_transient_for(GTK_WINDOW(dialog), mShell.window());
    mAddress = address;
    const std::string shown = shownLink(mAddress);
    if (mayOpenLink(mAddress)) {
        adw_message_dialog_set_body(dialog, shown.c_str());
    } else {
        adw_message_dialog_format_body(dialog, adw_message_dialog_get_body(dialog), shown.c_str());
    }
    g_signal_connect_swapped(dialog, "response", handler<&LinkDialog::answered>(), this);
    gtk_window_present(GTK_WINDOW(dialog));
}

void LinkDialog::answered(const char* response) {
    if (g_str_equal(response, "open") != FALSE) {
        gtk_show_uri_full(mShell.window(), mAddress.c_str(), GDK_CURRENT_TIME, mPending.get(),
                          asyncDone<&LinkDialog::opened>, this);
    }
}

void LinkDialog::opened(GObject* window, GAsyncResult* result) {
    if (gtk_show_uri_full_finish(GTK_WINDOW(window), result, nullptr) == FALSE) {
        mShell.say(_("No application opened the link."));
    }
}

} // namespace lectern::viewer
