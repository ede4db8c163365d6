// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Ui.h"

namespace lectern::viewer {

// What a window shows over the view while its document opens. The button cancels it:
// "win.cancel-open".
class OpeningPage {
public:
    explicit OpeningPage(Shell& shell);
    ~OpeningPage() { stopPulse(); }
    OpeningPage(const OpeningPage&) = delete;
    OpeningPage& operator=(const OpeningPage&) = delete;

    GtkWidget* widget() const { return mUi.widget("page"); }
    void show(const std::string& name);
    void hide() { gtk_widget_set_visible(widget(), FALSE); }

private:
    void progress();
    void startPulse();
    void stopPulse();
    GtkProgressBar* bar() const { return GTK_PROGRESS_BAR(mUi.object("bar")); }

    Shell& mShell;
    Ui mUi{"opening-page.ui"};
    GLibHolder<GSignalGroup> mSignals;
    guint mPulse = 0;
};

} // namespace lectern::viewer
