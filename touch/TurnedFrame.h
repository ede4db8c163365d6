// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPixmap.h"
#include "raster/CpRect.h"

#include <cstdint>

// The client's frame of a view on a device that may be held on its side or upside down:
// what of the frame is what of the upright picture. Points are pixels; ways are
// differences of points.
class TurnedFrame {
public:
    // How the picture is turned in the frame.
    enum class Turn { None, Left, Right, Half };

    TurnedFrame(int width, int height) : mWidth(width), mHeight(height) {}

    void setTurn(Turn turn) { mTurn = turn; }
    void resize(int width, int height);
    bool isTurned() const { return mTurn != Turn::None; }

    int width() const { return mWidth; }
    int height() const { return mHeight; }
    // The size of the upright picture.
    int uprightWidth() const { return isOnItsSide() ? mHeight : mWidth; }
    int uprightHeight() const { return isOnItsSide() ? mWidth : mHeight; }

    CpPoint pointToUpright(const CpPoint& point) const;
    CpPoint wayToUpright(const CpPoint& way) const;
    CpPoint wayFromUpright(const CpPoint& way) const;
    CpRect fromUpright(const CpRect& r) const;
    // Copies an upright picture to the frame.
    void copy(const CpPixmap& upright, uint32_t* frame) const;

private:
    bool isOnItsSide() const { return mTurn == Turn::Left || mTurn == Turn::Right; }

    Turn mTurn = Turn::None;
    int mWidth;
    int mHeight;
};
