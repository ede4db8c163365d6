// SPDX-License-Identifier: Apache-2.0
// A presentation view whose members tests can read and set.
#pragma once

#include "ppt/PPT.h"
#include "tests/fakes/slides/FakeSlideModule.h"

class TestPpt : public PPT {
public:
    using PPT::currentRegion;
    using PPT::mBaseScale;
    using PPT::mClicked;
    using PPT::mCurrentResult;
    using PPT::mCurrentSlide;
    using PPT::mDataStore;
    using PPT::mDirty;
    using PPT::mDocPixmap;
    using PPT::mDrawMode;
    using PPT::mFlicking;
    using PPT::mGestureActive;
    using PPT::mGestureAppliedScale;
    using PPT::mGestureRequestScale;
    using PPT::mGestureScroll;
    using PPT::mLastFrame;
    using PPT::mMaxScale;
    using PPT::mMinScale;
    using PPT::mOffscreenDirty;
    using PPT::mPenDown;
    using PPT::mScale;
    using PPT::mScaleLevel;
    using PPT::mScroll;
    using PPT::mScroller;
    using PPT::mSlideHeight;
    using PPT::mSlideWidth;
    using PPT::mSurface;
    using PPT::mTapStoppedScroll;
    using PPT::PPT;

    int width() const { return mWidth; }
    int height() const { return mHeight; }

    // Sets the slide's zoom, as after a pinch.
    void zoomTo(double scale) {
        mScale = scale;
        resizeDocument();
        mOffscreenDirty = true;
    }
};
