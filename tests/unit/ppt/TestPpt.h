// SPDX-License-Identifier: Apache-2.0
// A presentation view whose members tests can read and set.
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

    // Sets the slide's zoom, as after a pinch.
    void zoomTo(double scale) {
        mScale = scale;
        resizeDocument();
        mOffscreenDirty = true;
    }
};
