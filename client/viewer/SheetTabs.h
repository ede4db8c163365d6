// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

namespace lectern::viewer {

// The tabs of a spreadsheet with several sheets.
class SheetTabs : public Part {
public:
    // `ui` outlives this.
    SheetTabs(Shell& shell, const Ui& ui);

    // The name of the shown sheet; empty without one.
    const std::string& shownName() const { return mShownName; }

private:
    void show(LecternDocument* document) override;
    void take(GListModel* sheets);
    void markShown();
    void bringIntoView();
    void goTo(GVariant* entry);

    GtkScrolledWindow* mScroller;
    GtkBox* mTabs;
    GSimpleAction* mSheet;           // its state is the number of the shown sheet's entry
    GLibHolder<GListModel> mEntries; // LecternOutlineEntry; may be null
    std::string mShownName;
};

} // namespace lectern::viewer
