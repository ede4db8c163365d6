// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "touch/TurnedFrame.h"
#include "touch/UprightPpt.h"

#include <vector>

// The view of a presentation for clients that ask for touch manners. It turns the pictures
// of an upright view for a device that is held on its side or upside down. Input and
// rectangles are in pixels of the device, as those of the frame.
class TouchPpt : public UprightPpt {
public:
    TouchPpt(int width, int height, int docId, unsigned int dataStoreId, double dotsPerInch);

    // Opens a file of any name, if the module can.
    int openFile(const char* path, const char* password) override;

    // Shows the whole slide, turned against the device. Null turns an upright picture as
    // "right" does, and every other one upright.
    void setFitWideMode(const char* mode) override;

    void handlePaint(unsigned int* frameBuffer) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;

    bool handlePenDown(int x, int y) override;
    bool handlePenMove(int x, int y) override;
    bool handlePenUp(int x, int y) override;
    bool handleClick(int x, int y) override;
    bool handleDoubleClick(int x, int y) override;
    bool handleFlick(int vx, int vy) override;
    bool handleRecord(const ClientServerMessage& message) override;

    CpPoint middle() const override { return {mFrame.width() / 2, mFrame.height() / 2}; }
    void zoomTo(double zoom, const CpPoint& about) override;
    void resize(int width, int height) override;
    TouchResult select(SelectUnit unit, const CpPoint& point) override;
    TouchResult moveSelectionEnd(SelectEnd end, const CpPoint& point) override;
    TouchResult selection(Selection& selection) override;
    TouchResult visibleText(std::vector<TextLine>& lines) override;

protected:
    std::vector<CpPixmap*> pictures() override;

private:
    CpPoint toldWay(const CpPoint& way) const override { return mFrame.wayFromUpright(way); }
    CpPoint upright(int x, int y) const { return mFrame.pointToUpright({x, y}); }
    // Has the upright picture painted, and turns it.
    template<class Paint>
    void paintTurned(unsigned int* frameBuffer, Paint paint);

    TurnedFrame mFrame;
    CpPixmap mUpright{0, 0}; // the picture that is turned; without pixels while it is not
};
