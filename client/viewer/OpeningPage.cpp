// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/OpeningPage.h"

#include "client/viewer/Pending.h"

#include <utility>

namespace lectern::viewer {

OpeningPage::OpeningPage(Shell& shell) : mShell(shell), mSignals(signalsOfDocument(shell)) {
    g_signal_group_connect_swapped(mSignals.get(), "notify::progress",
                                   G_CALLBACK(onSignal<&OpeningPage::progress>), this);
    mUi.connect("page", "map", G_CALLBACK(onSignal<&OpeningPage::startPulse>), this);
    mUi.connect("page", "unmap", G_CALLBACK(onSignal<&OpeningPage::stopPulse>), this);
}

void OpeningPage::show(const std::string& name) {
    gtk_label_set_label(mUi.label("name"), name.c_str());
    gtk_progress_bar_set_fraction(bar(), 0);
    gtk_widget_set_visible(widget(), TRUE);
    gtk_widget_grab_focus(mUi.widget("cancel"));
}

void OpeningPage::progress() {
    const int percent = lectern_document_get_progress(lectern_view_get_document(mShell.view()));
    if (percent > 0) {
        stopPulse();
        gtk_progress_bar_set_fraction(bar(), percent / 100.0);
    }
}

// Until the document tells how far it is, the bar only moves.
void OpeningPage::startPulse() {
    constexpr guint PULSE_MILLISECONDS = 100;
    stopPulse();
    mPulse = g_timeout_add(
        PULSE_MILLISECONDS,
        [](void* self) -> gboolean {
            gtk_progress_bar_pulse(static_cast<OpeningPage*>(self)->bar());
            return G_SOURCE_CONTINUE;
        },
        this);
}

void OpeningPage::stopPulse() {
    if (mPulse != 0) {
        g_source_remove(std::exchange(mPulse, 0));
    }
}

} // namespace lectern::viewer
