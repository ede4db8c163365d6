// SPDX-License-Identifier: Apache-2.0
#include "touch/TurnedFrame.h"

#include "raster/Saturate.h"

namespace {

int prvNegative(int value) {
    return saturatedDifference(0, value);
}

} // namespace

void TurnedFrame::resize(int width, int height) {
    mWidth = width;
    mHeight = height;
}

CpPoint TurnedFrame::pointToUpright(const CpPoint& point) const {
    const int fromRight = saturatedDifference(mWidth - 1, point.x);
    const int fromBottom = saturatedDifference(mHeight - 1, point.y);
    switch (mTurn) {
    case Turn::Left:
        return {fromBottom, point.x};
    case Turn::Right:
        return {point.y, fromRight};
    case Turn::Half:
        return {fromRight, fromBottom};
    default:
        return point;
    }
}

CpPoint TurnedFrame::wayToUpright(const CpPoint& way) const {
    switch (mTurn) {
    case Turn::Left:
        return {prvNegative(way.y), way.x};
    case Turn::Right:
        return {way.y, prvNegative(way.x)};
    case Turn::Half:
        return {prvNegative(way.x), prvNegative(way.y)};
    default:
        return way;
    }
}

CpPoint TurnedFrame::wayFromUpright(const CpPoint& way) const {
    switch (mTurn) {
    case Turn::Left:
        return {way.y, prvNegative(way.x)};
    case Turn::Right:
        return {prvNegative(way.y), way.x};
    case Turn::Half:
        return {prvNegative(way.x), prvNegative(way.y)};
    default:
        return way;
    }
}

CpRect TurnedFrame::fromUpright(const CpRect& r) const {
    switch (mTurn) {
    case Turn::Left:
        return {r.Top(), saturatedDifference(mHeight, r.Right()), r.Bottom(),
                saturatedDifference(mHeight, r.Left())};
    case Turn::Right:
        return {saturatedDifference(mWidth, r.Bottom()), r.Left(), saturatedDifference(mWidth, r.Top()),
                r.Right()};
    case Turn::Half:
        return {saturatedDifference(mWidth, r.Right()), saturatedDifference(mHeight, r.Bottom()),
                saturatedDifference(mWidth, r.Left()), saturatedDifference(mHeight, r.Top())};
    default:
        return r;
    }
}

void TurnedFrame::copy(const CpPixmap& upright, uint32_t* frame) const {
    switch (mTurn) {
    case Turn::Left:
        upright.CopyTurnedLeft(frame);
        break;
    case Turn::Right:
        upright.CopyTurnedRight(frame);
        break;
    case Turn::Half:
        upright.CopyTurnedHalf(frame);
        break;
    default:
        upright.CopyBits(CpRect(0, 0, upright.Width(), upright.Height()), frame);
        break;
    }
}
