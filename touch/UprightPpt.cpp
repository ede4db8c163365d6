// SPDX-License-Identifier: Apache-2.0
// The place and the zoom of the slide, painting, taps and drags.
#include "touch/UprightPpt.h"

#include "raster/Saturate.h"
#include "touch/Stretched.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <cmath>

namespace {

// The largest zoom is at least so many times the fit.
constexpr double MOST_OF_FIT = 4.0;
// A shape that is as wide as the slide, or nearly, is not what was tapped but its ground.
constexpr double GROUND = 0.9;
constexpr size_t ADDRESS_CAPACITY = 4096; // UTF-16 units

// The size of a surface is even, so the slide fits only into an even length.
int prvEvenPart(int length) {
    return std::max(2, length - length % 2);
}

double prvRatio(int now, int before, double fallback) {
    return now > 0 && before > 0 ? static_cast<double>(now) / before : fallback;
}

int prvRounded(double value) {
    return saturateToInt(std::round(value));
}

} // namespace

UprightPpt::UprightPpt(int width, int height, int docId, unsigned int dataStoreId, double dotsPerInch)
    : TouchHandling(width, height, docId, dataStoreId, dotsPerInch), mOptional(mModuleHandle) {}

int UprightPpt::initializePPT() {
    const double restored = mScale;
    const int result = PPT::initializePPT();
    setLimits();
    mCurrentSlide = std::clamp(mCurrentSlide, 0, std::max(0, mSlideCount - 1));
    setScale(mScaleRestored ? restored : fit());
    moveTo(mScroll);
    return result;
}

void UprightPpt::setLimits() {
    if (mSlideWidth > 0) {
        mBaseScale = std::min(static_cast<double>(prvEvenPart(mWidth)) / mSlideWidth,
                              static_cast<double>(prvEvenPart(mHeight)) / mSlideHeight);
    }
    mMinScale = mBaseScale;
    mMaxScale = std::max(LARGEST_ZOOM * scaleOfOne(), MOST_OF_FIT * mBaseScale);
    mMaxScale = std::max(mBaseScale, possibleScale(mMaxScale));
}

void UprightPpt::setScale(double scale) {
    mScale = std::clamp(scale, mMinScale, mMaxScale);
    resizeDocument();
    mOffscreenDirty = true;
}

CpPoint UprightPpt::moveTo(const CpPoint& wanted) {
    mScroll = wanted;
    clampPosition(mScroll.x, mScroll.y);
    return {saturatedDifference(wanted.x, mScroll.x), saturatedDifference(wanted.y, mScroll.y)};
}

CpRect UprightPpt::Placing::inView() const {
    const CpPoint topLeft(saturatedDifference(0, scroll.x), saturatedDifference(0, scroll.y));
    return {topLeft.x, topLeft.y, saturatedSum(topLeft.x, size.x), saturatedSum(topLeft.y, size.y)};
}

UprightPpt::Placing UprightPpt::placingAbout(double scale, const CpPoint& from, const CpPoint& to) const {
    const CpPoint now = surfaceSize(mScale);
    Placing placing;
    placing.size = surfaceSize(scale);
    const double across = prvRatio(placing.size.x, now.x, scale / mScale);
    const double down = prvRatio(placing.size.y, now.y, scale / mScale);
    placing.scroll.set(prvRounded((static_cast<double>(mScroll.x) + from.x) * across - to.x),
                       prvRounded((static_cast<double>(mScroll.y) + from.y) * down - to.y));
    clampPosition(placing.scroll.x, placing.scroll.y, saturatedDifference(placing.size.x, mWidth),
                  saturatedDifference(placing.size.y, mHeight));
    return placing;
}

void UprightPpt::zoomAbout(double scale, const CpPoint& from, const CpPoint& to) {
    const Placing placing = placingAbout(scale, from, to);
    setScale(scale);
    moveTo(placing.scroll);
}

void UprightPpt::zoomTo(double zoom, const CpPoint& about) {
    TouchHandling::zoomTo(zoom * scaleOfOne(), about);
}

void UprightPpt::layOutForSize() {
    const bool wasAtFit = isAtFit();
    setLimits();
    setScale(wasAtFit ? fit() : mScale);
}

// Keeps the middle of the view.
void UprightPpt::resize(int width, int height) {
    const CpPoint before = surfaceSize(mScale);
    const double x = static_cast<double>(mScroll.x) + mWidth / 2.0;
    const double y = static_cast<double>(mScroll.y) + mHeight / 2.0;
    TouchHandling::resize(width, height);
    const CpPoint now = surfaceSize(mScale);
    moveTo({prvRounded(x * prvRatio(now.x, before.x, 1.0) - mWidth / 2.0),
            prvRounded(y * prvRatio(now.y, before.y, 1.0) - mHeight / 2.0)});
}

CpPoint UprightPpt::onSurface(const CpPoint& point) const {
    return {saturatedSum(mScroll.x, point.x), saturatedSum(mScroll.y, point.y)};
}

CpRect UprightPpt::onView(CpRect r) const {
    r.Offset(saturatedDifference(0, mScroll.x), saturatedDifference(0, mScroll.y));
    return r;
}

// What the module tells about its last rendering is about the surface again.
int UprightPpt::drawOffscreenBuffer() {
    mRenderedAnother = false;
    return PPT::drawOffscreenBuffer();
}

// The base view has copied the surface to the frame.
void UprightPpt::handlePaint(unsigned int* frameBuffer) {
    PPT::handlePaint(frameBuffer);
    if (!mUnrendered) {
        CpPixmap frame(frameBuffer, mWidth, mHeight);
        drawMarks(frame, Placing{surfaceSize(mScale), mScroll}.inView());
    }
}

void UprightPpt::eraseAround(const CpRect& slide, unsigned int* frameBuffer) const {
    const auto erase = [&](int row, int from, int to) {
        eraseBuffer(frameBuffer + static_cast<ptrdiff_t>(row) * mWidth + from,
                    static_cast<unsigned int>(to - from));
    };
    const int left = std::clamp(slide.Left(), 0, mWidth);
    const int right = std::clamp(slide.Right(), left, mWidth);
    for (int row = 0; row < mHeight; ++row) {
        if (row < slide.Top() || row >= slide.Bottom()) {
            erase(row, 0, mWidth);
        } else {
            erase(row, 0, left);
            erase(row, right, mWidth);
        }
    }
}

// Shows the rendered surface where the pinch would leave it if it ended now.
void UprightPpt::handlePaintGesture(unsigned int* frameBuffer) {
    if (mOffscreenDirty) {
        drawOffscreenBuffer();
    }
    if (repeatLastFrame(frameBuffer)) {
        return;
    }
    const PinchAnchor& pinch = pinchAnchor();
    const CpRect slide = placingAbout(mScale * pinch.previewFactor(), pinch.begun(), pinch.point()).inView();
    eraseAround(slide, frameBuffer);
    copyStretched(*mSurface, slide, frameBuffer, mWidth, mHeight);
    mHasShown = true;
    CpPixmap frame(frameBuffer, mWidth, mHeight);
    drawMarks(frame, slide);
}

bool UprightPpt::handlePenDown(int x, int y) {
    mTurnedByDrag = false;
    return TouchHandling::handlePenDown(x, y);
}

// A drag of more than half the view turns the page at the fit.
bool UprightPpt::handlePenUp(int x, int y) {
    const bool drags = mPenDown && !mGestureActive && !mClicked && isAtFit();
    const double across = static_cast<double>(x) - mPenDownPoint.x;
    const double down = static_cast<double>(y) - mPenDownPoint.y;
    TouchHandling::handlePenUp(x, y);
    if (drags && std::abs(across) > mWidth / 2.0 && std::abs(across) > std::abs(down)) {
        mTurnedByDrag = true;
        turnPage(across < 0 ? 1 : -1);
    }
    return true;
}

// A flick to the side turns the page at the fit, unless the drag before it has.
bool UprightPpt::handleFlick(int vx, int vy) {
    const double across = std::abs(static_cast<double>(vx));
    const double down = std::abs(static_cast<double>(vy));
    const bool turns = !mGestureActive && isAtFit() && across > down && across >= Glide::REST_SPEED;
    if (!turns) {
        return TouchHandling::handleFlick(vx, vy);
    }
    mPenDown = false;
    tellOverscroll(CpPoint(0, 0));
    if (!std::exchange(mTurnedByDrag, false)) {
        turnPage(vx < 0 ? 1 : -1);
    }
    return true;
}

bool UprightPpt::handleClick(int x, int y) {
    return TouchHandling::handleClick(x, y) || followLink({x, y});
}

void UprightPpt::endContact() {
    glide().stop();
    tellOverscroll(CpPoint(0, 0));
    mPenDown = false;
    mGestureActive = false;
}

void UprightPpt::changeSlide(int slide) {
    clearSelection();
    PPT::jumpToSlide(slide);
}

void UprightPpt::showWhole() {
    endContact();
    if (!isAtFit()) {
        setScale(fit());
    }
    moveTo(mScroll);
}

int UprightPpt::jumpToSlide(int index) {
    changeSlide(index);
    showWhole();
    return mCurrentSlide;
}

void UprightPpt::turnPage(int step) {
    const int slide = mCurrentSlide + step;
    if (slide >= 0 && slide < mSlideCount) {
        jumpToSlide(slide);
        InvalidateScreen();
    }
}

bool UprightPpt::followLink(const CpPoint& point) {
    if (mOptional.getLink == nullptr || !hasPicture()) {
        return false;
    }
    const CpPoint at = onSurface(point);
    std::vector<uint16_t> address(ADDRESS_CAPACITY);
    int32_t target = -1;
    int32_t length = 0;
    if (mOptional.getLink(mDocument, mCurrentSlide, at.x, at.y, mSurface->Width(), mSurface->Height(),
                          &target, address.data(), static_cast<int32_t>(address.size()), &length) != 0) {
        return false;
    }
    if (target >= 0) {
        jumpToSlide(target);
        InvalidateScreen();
    } else {
        mLastLink = utf8OfBuffer(address);
        SendDocMessage(_HYPERLINK);
    }
    return true;
}

TapTarget UprightPpt::tapTarget(const CpPoint& point) {
    const CpPoint at = onSurface(point);
    module_rect shape{};
    const bool told = mOptional.getShapeArea != nullptr && hasPicture() &&
                      mOptional.getShapeArea(mDocument, mCurrentSlide, at.x, at.y, mSurface->Width(),
                                             mSurface->Height(), &shape) == 0;
    if (!told || shape.width < 1 || shape.width > GROUND * mSurface->Width()) {
        return {TapTarget::ZOOM * fit(), point, point};
    }
    TapTarget target = TapTarget::widthOf(
        onView({shape.x, shape.y, saturatedSum(shape.x, shape.width), saturatedSum(shape.y, shape.height)}),
        point, mScale, mWidth);
    target.zoom = std::min(target.zoom, MOST_OF_FIT * fit()); // a small sign does not fill the view
    return target;
}

ViewPlace UprightPpt::place() const {
    ViewPlace place;
    if (mSurface != nullptr) {
        place.documentWidth = mSurface->Width();
        place.documentHeight = mSurface->Height();
    }
    place.view =
        CpRect(mScroll.x, mScroll.y, saturatedSum(mScroll.x, mWidth), saturatedSum(mScroll.y, mHeight));
    place.zoom = mScale / scaleOfOne();
    place.smallestZoom = mMinScale / scaleOfOne();
    place.largestZoom = mMaxScale / scaleOfOne();
    place.fit = mBaseScale / scaleOfOne();
    place.part = mCurrentSlide;
    place.parts = mSlideCount;
    place.hit = mHit;
    place.hits = mHits;
    place.isMoving = glide().isMoving();
    return place;
}
