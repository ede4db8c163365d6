// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/CellBar.h"
#include "client/viewer/SheetActions.h"
#include "client/viewer/SheetTabs.h"

namespace lectern::viewer {

// The bar below a spreadsheet.
class SheetBar {
public:
    explicit SheetBar(Shell& shell) : mCell(shell, mUi), mTabs(shell, mUi), mActions(shell) {}

    GtkWidget* widget() const { return mUi.widget("bar"); }
    const SheetTabs& tabs() const { return mTabs; }

private:
    Ui mUi{"sheet-bar.ui"};
    CellBar mCell;
    SheetTabs mTabs;
    SheetActions mActions;
};

} // namespace lectern::viewer
