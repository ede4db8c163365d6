// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ppt/PPT.h"
#include "touch/TouchHandling.h"

// The view of a presentation for clients that ask for touch manners.
class TouchPpt : public TouchHandling<PPT> {
public:
    using TouchHandling::TouchHandling;

    // Opens a file of any name, if the module can.
    int openFile(const char* path, const char* password) override;

    void handlePaintGesture(unsigned int* frameBuffer) override;
    ViewPlace place() const override;

private:
    CpPoint moveTo(const CpPoint& wanted) override;
    void cover() override {}
    void zoomAbout(double scale, const CpPoint& from, const CpPoint& to) override;
    void layOutForSize() override;
    double fit() const override { return mBaseScale; }
    double smallestZoom() const override { return mBaseScale; }
};
