// SPDX-License-Identifier: Apache-2.0
// A spreadsheet view whose members tests can read and set.
#pragma once

#include "excel/Excel.h"
#include "tests/fakes/sheet/FakeSheetModule.h"
#include "tests/unit/view/TestView.h"

class TestExcel : public TestView<Excel> {
public:
    using Excel::corner;
    using Excel::drawScreen;
    using Excel::getOffscreenDocBounds;
    using Excel::getViewDocBounds;
    using Excel::mAnchor;
    using Excel::mCells;
    using Excel::mColumnHeaders;
    using Excel::mCurrentSheet;
    using Excel::mResizeMode;
    using Excel::mRowHeaders;
    using Excel::mSelection;
    using Excel::mSelectionActive;
    using Excel::mSheetHeight;
    using Excel::mSheetWidth;
    using Excel::mStroke;
    using TestView::TestView;

    static constexpr const char* DOCUMENT = "/d/book.xls";
    static constexpr const char* UNREADABLE = "/d/code-8.xls";
    static FakeSheetControl& fake() { return fakeSheet(); }

    // Stops the view at a document pixel.
    void restAt(int x, int y) {
        mScroll.set(x, y);
        recenterDocument();
        mOffscreenDirty = true;
    }
};
