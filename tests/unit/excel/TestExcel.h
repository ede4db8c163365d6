// SPDX-License-Identifier: Apache-2.0
// A spreadsheet view whose members tests can read and set.
#pragma once

#include "excel/Excel.h"
#include "tests/fakes/sheet/FakeSheetModule.h"

class TestExcel : public Excel {
public:
    using Excel::corner;
    using Excel::drawScreen;
    using Excel::Excel;
    using Excel::getOffscreenDocBounds;
    using Excel::getViewDocBounds;
    using Excel::mAnchor;
    using Excel::mCells;
    using Excel::mClicked;
    using Excel::mColumnHeaders;
    using Excel::mCurrentResult;
    using Excel::mCurrentSheet;
    using Excel::mDataStore;
    using Excel::mDirty;
    using Excel::mDocPixmap;
    using Excel::mDrawMode;
    using Excel::mFlicking;
    using Excel::mFlickUp;
    using Excel::mGestureActive;
    using Excel::mGestureAppliedScale;
    using Excel::mGestureRequestScale;
    using Excel::mGestureScroll;
    using Excel::mLastFrame;
    using Excel::mOffscreenDirty;
    using Excel::mPenDown;
    using Excel::mPenDownPoint;
    using Excel::mPenDownScroll;
    using Excel::mResizeMode;
    using Excel::mRowHeaders;
    using Excel::mScale;
    using Excel::mScaleLevel;
    using Excel::mScroll;
    using Excel::mScroller;
    using Excel::mSelection;
    using Excel::mSelectionActive;
    using Excel::mSheetHeight;
    using Excel::mSheetWidth;
    using Excel::mStroke;
    using Excel::mTapStoppedScroll;

    int width() const { return mWidth; }
    int height() const { return mHeight; }

    // Stops the view at a document pixel.
    void restAt(int x, int y) {
        mScroll.set(x, y);
        recenterDocument();
        mOffscreenDirty = true;
    }
};
