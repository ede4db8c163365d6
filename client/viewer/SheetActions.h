// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

namespace lectern::viewer {

// The actions on the columns and rows of a sheet that were selected in its headers.
class SheetActions : public Part {
public:
    explicit SheetActions(Shell& shell);

private:
    void show(LecternDocument* document) override;
    void columnSelected() { enable(true, true); }
    void tracksSelected() { enable(false, true); }
    void nothingSelected() { enable(false, false); }
    void enable(bool hasColumn, bool hasTracks);

    template<auto start, auto finish, auto... arguments>
    void run();
    void setResizing();

    GSimpleAction* mSortAscending;
    GSimpleAction* mSortDescending;
    GSimpleAction* mHide;
    GSimpleAction* mUnhide;
    GSimpleAction* mUnhideAll;
    GSimpleAction* mResize;
};

} // namespace lectern::viewer
