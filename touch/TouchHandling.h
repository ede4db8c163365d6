// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"
#include "raster/CpPixmap.h"
#include "raster/Saturate.h"
#include "touch/Clock.h"
#include "touch/DragLock.h"
#include "touch/Glide.h"
#include "touch/ModuleFiles.h"
#include "touch/Overscroll.h"
#include "touch/PinchAnchor.h"
#include "touch/TapTarget.h"
#include "touch/TouchView.h"

#include <algorithm>
#include <utility>

// A view with the manners that all touch views share: drags, glides, pinches, double
// taps and edges. View is the defined view of a kind of document. What differs between
// the kinds is in the private virtual functions.
//
// Document pixels may be renumbered while a view moves; shiftDocument() moves what is
// kept of them here.
template<class View>
class TouchHandling : public View, public TouchView {
public:
    // Zooms are relative to the size on a screen with so many dots per inch.
    static constexpr double SMALLEST_ZOOM = 0.25;
    static constexpr double LARGEST_ZOOM = 8.0;

    TouchHandling(int width, int height, int docId, unsigned int dataStoreId, double dotsPerInch)
        : View(width, height, docId, dataStoreId) {
        this->mDotsPerInch = dotsPerInch;
        this->mMinScale = SMALLEST_ZOOM;
        this->mMaxScale = LARGEST_ZOOM;
        this->mScale = 1.0;
        // The defined view has restored it with its own limits, or found no segment.
        if (dataStoreId != 0 && this->mDataStoreShmId == dataStoreId) {
            this->RestoreStateFromDataStore();
        } else {
            this->SaveStateToDataStore();
        }
    }

    TouchResult exportTo(ExportFormat format, const char* path) override {
        return exportDocument(this->mModuleHandle, this->docType(), this->moduleDocument(), format, path);
    }

    bool handlePenDown(int x, int y) override {
        this->mTapStoppedScroll = mGlide.isMoving();
        mGlide.stop();
        if (!this->mGestureActive) {
            this->mPenDown = true;
            this->mPenDownPoint.set(x, y);
            this->mPenDownScroll = this->mScroll;
            mDragLock.begin();
        }
        return true;
    }

    bool handlePenMove(int x, int y) override {
        if (this->mPenDown && !this->mGestureActive) {
            drag(x, y);
        }
        return true;
    }

    bool handlePenUp(int x, int y) override {
        if (this->mPenDown && !this->mGestureActive && !this->mClicked) {
            drag(x, y);
        }
        tellOverscroll(CpPoint(0, 0));
        this->mPenDown = false;
        this->mFlicking = false;
        this->mClicked = false;
        return true;
    }

    bool handleFlick(int vx, int vy) override {
        if (!this->mGestureActive) {
            CpPoint way = dragLocks() ? mDragLock.apply(vx, vy, 0.0) : CpPoint(vx, vy);
            way.x = movesSideways() ? way.x : 0;
            this->mPenDown = false; // what is left of this contact does not drag any more
            tellOverscroll(CpPoint(0, 0));
            mDragLock.begin();
            mGlide.start(this->mScroll, -static_cast<double>(way.x), -static_cast<double>(way.y),
                         touchTime());
            this->InvalidateScreen();
        }
        return true;
    }

    // A contact that has stopped a glide does not click.
    bool handleClick(int x, int y) override {
        if (this->mTapStoppedScroll) {
            this->mTapStoppedScroll = false;
            this->mClicked = true;
            return true;
        }
        return View::handleClick(x, y);
    }

    bool handleDoubleClick(int x, int y) override {
        if (this->mGestureActive) {
            return true;
        }
        this->mClicked = true;
        MutexLock guard;
        if (guard.lock(&this->mMutex) != 0) {
            return true;
        }
        const CpPoint point(std::clamp(x, 0, this->mWidth), std::clamp(y, 0, this->mHeight));
        const TapTarget target = isAtFit() ? tapTarget(point) : TapTarget{fit(), point, point};
        mGlide.stop();
        zoomAbout(limitedZoom(target.zoom), target.from, target.to);
        this->InvalidateScreen();
        return true;
    }

    bool handleKeyDown(int key, int modifiers) override {
        View::handleKeyDown(key, modifiers);
        moveTo(this->mScroll);
        return true;
    }

    // Pinches without a position are about the view's centre.
    bool handleGestureStart(double scale, double /*unused*/) override {
        beginPinch(centre());
        mPinch.move(centre(), scale);
        return true;
    }
    bool handleGestureChange(double scale, double /*unused*/) override {
        mPinch.move(centre(), scale);
        return true;
    }
    bool handleGestureEnd(double /*scale*/, double /*unused*/) override {
        MutexLock guard;
        if (guard.lock(&this->mMutex) == 0) {
            endPinch(mPinch.finalFactor());
        }
        return true;
    }

    bool handleRecord(const ClientServerMessage& message) override {
        switch (message.type) {
        case _PINCH:
            pinch(message);
            return true;
        case _SCROLL_BY:
            mGlide.stop();
            moveTo({saturatedSum(this->mScroll.x, message.x), saturatedSum(this->mScroll.y, message.y)});
            this->InvalidateScreen();
            return true;
        default:
            return false;
        }
    }

    // Called by each paint.
    bool tick() override {
        if (mGlide.isMoving()) {
            const CpPoint wanted = mGlide.at(touchTime());
            const CpPoint beyond = moveTo(wanted);
            if (beyond.x != 0) {
                mGlide.stopX(this->mScroll.x);
            }
            if (beyond.y != 0) {
                mGlide.stopY(this->mScroll.y);
            }
            if (mGlide.isMoving()) {
                this->InvalidateScreen();
            }
        }
        cover();
        return mGlide.isMoving();
    }

    void watchOpen(OpenWatch watch) override { mOpenWatch = std::move(watch); }

    void scrollTo(int x, int y) override {
        mGlide.stop();
        moveTo({x, y});
        this->InvalidateScreen();
    }

    CpPoint middle() const override { return centre(); }

    void zoomTo(double zoom, const CpPoint& about) override {
        mGlide.stop();
        zoomAbout(limitedZoom(zoom), about, about);
        this->InvalidateScreen();
    }

    void resize(int width, int height) override {
        mGlide.stop();
        this->mGestureActive = false;
        this->mPenDown = false;
        this->mWidth = width;
        this->mHeight = height;
        this->mLastFrame = CpPixmap(width, height);
        this->mHasShown = false;
        layOutForSize();
        this->InvalidateScreen();
    }

protected:
    // The middle of the view.
    CpPoint centre() const { return {this->mWidth / 2, this->mHeight / 2}; }
    bool isAtFit() const { return std::abs(this->mScale / fit() - 1.0) < 1e-3; }
    // Call it when document pixels get other numbers.
    void shiftDocument(int dx, int dy) { mGlide.shift(dx, dy); }
    const OpenWatch& openWatch() const { return mOpenWatch; }
    Glide& glide() { return mGlide; }
    const Glide& glide() const { return mGlide; }
    const PinchAnchor& pinchAnchor() const { return mPinch; }

    void tellOverscroll(const CpPoint& beyond) {
        if (mOverscroll.set(beyond)) {
            const CpPoint told = toldWay(beyond);
            this->SendDocMessage(_OVERSCROLL, told.x, told.y);
        }
    }

private:
    // Moves the view to a document pixel, as far as the document reaches. Returns by how
    // much the pixel is beyond that.
    virtual CpPoint moveTo(const CpPoint& wanted) = 0;
    // Renders what the view shows, if that is not rendered.
    virtual void cover() = 0;
    // Zooms so that what lies under the point `from` of the view then lies under `to`.
    virtual void zoomAbout(double scale, const CpPoint& from, const CpPoint& to) = 0;
    // The zoom to which a double tap returns.
    virtual double fit() const { return 1.0; }
    virtual double smallestZoom() const { return this->mMinScale; }
    // What a double tap shows of that which lies under a point at the fit.
    virtual TapTarget tapTarget(const CpPoint& point) { return {fit() * TapTarget::ZOOM, point, point}; }
    // The view has got another size.
    virtual void layOutForSize() = 0;
    // Whether nearly straight drags stay on their axis.
    virtual bool dragLocks() const { return true; }
    // A way in the view as the client sees it.
    virtual CpPoint toldWay(const CpPoint& way) const { return way; }
    // Whether the document can be wider than the view.
    virtual bool movesSideways() const { return true; }

    double limitedZoom(double zoom) const {
        return std::clamp(zoom, smallestZoom(), std::max(smallestZoom(), this->mMaxScale));
    }

    void drag(int x, int y) {
        CpPoint way(saturatedDifference(this->mPenDownPoint.x, x),
                    saturatedDifference(this->mPenDownPoint.y, y));
        if (dragLocks()) {
            way = mDragLock.apply(way.x, way.y, this->mDotsPerInch);
        }
        way.x = movesSideways() ? way.x : 0;
        tellOverscroll(moveTo(
            {saturatedSum(this->mPenDownScroll.x, way.x), saturatedSum(this->mPenDownScroll.y, way.y)}));
    }

    void beginPinch(const CpPoint& point) {
        mGlide.stop();
        tellOverscroll(CpPoint(0, 0));
        this->mPenDown = false;
        this->mGestureActive = true;
        mPinch.begin(point, this->mScale, smallestZoom(), this->mMaxScale);
    }

    void endPinch(double factor) {
        if (!std::exchange(this->mGestureActive, false)) {
            return;
        }
        if (factor != 1.0 || mPinch.point().x != mPinch.begun().x || mPinch.point().y != mPinch.begun().y) {
            zoomAbout(this->mScale * factor, mPinch.begun(), mPinch.point());
        }
        this->InvalidateScreen();
    }

    void pinch(const ClientServerMessage& message) {
        const CpPoint point(message.x, message.y);
        if (message.pinchPhase() == _PINCH_BEGINS) {
            beginPinch(point);
        }
        if (!this->mGestureActive) {
            return;
        }
        mPinch.move(point, message.pinchFactor());
        if (message.pinchPhase() >= _PINCH_ENDS) {
            MutexLock guard;
            if (guard.lock(&this->mMutex) == 0) {
                endPinch(message.pinchPhase() == _PINCH_ENDS ? mPinch.finalFactor() : 1.0);
            }
        }
    }

    Glide mGlide;
    DragLock mDragLock;
    PinchAnchor mPinch;
    Overscroll mOverscroll;
    OpenWatch mOpenWatch;
};
