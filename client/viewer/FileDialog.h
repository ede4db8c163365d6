// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Ui.h"

namespace lectern::viewer {

// Asks for documents to open with the chooser of the desktop, through its portal where it
// has one, and opens them.
class FileDialog {
public:
    explicit FileDialog(Shell& shell);

    void show();

private:
    static void answer(void* self, int response);
    void openChosen();

    Shell& mShell;
    GLibHolder<GtkFileChooserNative> mChooser;
};

} // namespace lectern::viewer
