// SPDX-License-Identifier: Apache-2.0
// A view of any kind whose inside the tests can see and set.
#pragma once

#include "view/OfficeBase.h"

template<typename Kind>
class TestView : public Kind {
public:
    using Kind::Kind;
    using Kind::mBaseScale;
    using Kind::mClicked;
    using Kind::mCurrentResult;
    using Kind::mDataStore;
    using Kind::mDirty;
    using Kind::mDocPixmap;
    using Kind::mDrawMode;
    using Kind::mFlicking;
    using Kind::mFlickUp;
    using Kind::mGestureActive;
    using Kind::mGestureAppliedScale;
    using Kind::mGestureRequestScale;
    using Kind::mGestureScroll;
    using Kind::mLastFrame;
    using Kind::mMaxScale;
    using Kind::mMinScale;
    using Kind::mOffscreenDirty;
    using Kind::mPenDown;
    using Kind::mPenDownPoint;
    using Kind::mPenDownScroll;
    using Kind::mScale;
    using Kind::mScaleLevel;
    using Kind::mScroll;
    using Kind::mScroller;
    using Kind::mTapStoppedScroll;

    int width() const { return this->mWidth; }
    int height() const { return this->mHeight; }
};
