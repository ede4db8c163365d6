// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/History.h"
#include "client/viewer/Ui.h"

namespace lectern::viewer {

// What a window without a document shows: the documents opened last.
class WelcomePage {
public:
    WelcomePage(Shell& shell, const History& history);

    GtkWidget* widget() const { return mUi.widget("page"); }

private:
    void fill();
    void add(const History::Entry& entry);
    void clear();
    static void openRow(void* self, GtkListBoxRow* row);

    Shell& mShell;
    const History& mHistory;
    Ui mUi{"welcome-page.ui"};
};

} // namespace lectern::viewer
