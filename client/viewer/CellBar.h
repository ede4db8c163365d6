// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/CellAddress.h"
#include "client/viewer/Part.h"

namespace lectern::viewer {

// The address and the contents of the cell that was tapped last: its formula, or its text
// if it has none. An address that is typed in leads to its cell.
class CellBar : public Part {
public:
    // `ui` outlives this.
    CellBar(Shell& shell, const Ui& ui);

private:
    void show(LecternDocument* document) override;
    void clear() { showCell("", ""); }
    void tapped(int column, int row);
    void showTapped(LecternCell* cell);
    void showCell(const char* address, const char* contents);

    void startTyping();
    void goToTyped();
    void askForWanted();
    void goToWanted(LecternCell* cell);
    void scrolled(GObject* source, GAsyncResult* result);

    GtkWidget* mBar;
    GtkEditable* mAddress;
    GtkEditable* mContents;
    GSimpleAction* mGoToCell;
    CellAddress mWanted;
    bool mHasScrolled = false; // to the wanted cell
};

} // namespace lectern::viewer
