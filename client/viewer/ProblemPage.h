// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Ui.h"

namespace lectern::viewer {

// Tells why a document did not open, and what its reader can do.
class ProblemPage {
public:
    GtkWidget* widget() const { return mUi.widget("page"); }
    void show(const GError& error);

private:
    Ui mUi{"problem-page.ui"};
};

} // namespace lectern::viewer
