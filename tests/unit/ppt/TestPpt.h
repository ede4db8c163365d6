// SPDX-License-Identifier: Apache-2.0
// A presentation view whose inside the tests can see and set.
#pragma once

#include "ppt/PPT.h"
#include "tests/fakes/slides/FakeSlideModule.h"
#include "tests/unit/view/TestView.h"

class TestPpt : public TestView<PPT> {
public:
    using PPT::currentRegion;
    using PPT::mCurrentSlide;
    using PPT::mSlideHeight;
    using PPT::mSlideWidth;
    using PPT::mSurface;
    using TestView::TestView;

    static constexpr const char* DOCUMENT = "/d/deck.ppt";
    static constexpr const char* UNREADABLE = "/d/code-8.ppt";
    static FakeSlideControl& fake() { return fakeSlides(); }

    // The slide at a zoom, as after a pinch to it.
    void zoomTo(double scale) {
        mScale = scale;
        resizeDocument();
        mOffscreenDirty = true;
    }
};
