// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "excel/Excel.h"
#include "touch/TouchHandling.h"

// The view of a spreadsheet for clients that ask for touch manners.
class TouchExcel : public TouchHandling<Excel> {
public:
    using TouchHandling::TouchHandling;

    // Opens a file of any name, if the module can.
    int openFile(const char* path, const char* password) override;

    void handlePaintGesture(unsigned int* frameBuffer) override;
    ViewPlace place() const override;

private:
    CpPoint moveTo(const CpPoint& wanted) override;
    void cover() override;
    void zoomAbout(double scale, const CpPoint& from, const CpPoint& to) override;
    void layOutForSize() override;
};
