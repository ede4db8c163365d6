// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"
#include "raster/CpPixmap.h"
#include "view/NewtonianSmoothScroll.h"
#include "view/StateRecord.h"
#include "view/StateSegment.h"

#include <pthread.h>

#include <cstdint>
#include <string>

// The kind of a document, as clients see it in "doctype".
enum doctype_t : int { _UNKNOWN = 0, _EXCEL = 1, _WORD = 2, _PPT = 3 };

// How a paint is done. 1 does not exist.
enum DrawMode : int { _NORMAL = 0, _WIDE = 2, _LEFT = 3, _RIGHT = 4, _DOWN = 5 };

// A document's view: what is seen of it and how input moves that. One for each
// open document; the kinds derive from it.
//
// Threads: every call is made with the registry's mutex held, by the bus thread
// or the worker. The view's own mutex is taken second, by the operations that
// say so and by callers that reach mutex(); it is not recursive.
//
// Coordinates: x and y of input are view pixels. mScroll is in document pixels,
// as are the bounds of mDocPixmap.
class OfficeBase {
public:
    virtual ~OfficeBase();
    OfficeBase(const OfficeBase&) = delete;
    OfficeBase& operator=(const OfficeBase&) = delete;

    // The state record in shared memory; nothing happens while there is none.
    // A restored value that makes no sense (a scale outside the view's limits, a
    // position beyond 2^30 either way, an unknown level) leaves the field alone.
    virtual void SaveStateToDataStore();
    virtual void RestoreStateFromDataStore();
    // 0 or the module's code. A null password is none.
    virtual int openFile(const char* path, const char* password) = 0;
    // Paints mWidth * mHeight pixels; takes mMutex. REQUIRES: a surface.
    virtual void handlePaint(unsigned int* frameBuffer);
    // Paints during a pinch; sets mGestureAppliedScale and mGestureScroll.
    virtual void handlePaintGesture(unsigned int* frameBuffer) = 0;
    // Paints in the draw modes other than _NORMAL; takes mMutex. REQUIRES: a
    // surface. The turned copies write a row or column beyond the frame.
    virtual void handlePaintWide(unsigned int* frameBuffer);
    virtual bool handleKeyDown(int key, int modifiers);
    virtual bool handleKeyUp(int key, int modifiers);
    virtual bool handlePenDown(int x, int y);
    virtual bool handlePenUp(int x, int y);
    virtual bool handlePenMove(int x, int y);
    // Scales are the client's pinch factor, 1 unchanged.
    virtual bool handleGestureStart(double scale, double unused);
    virtual bool handleGestureChange(double scale, double unused);
    virtual bool handleGestureEnd(double scale, double unused);
    virtual bool handleDoubleClick(int x, int y);
    // False when the view had no use for the click; the caller tells the client.
    virtual bool handleClick(int x, int y);
    // Finger velocity in pixels per second.
    virtual bool handleFlick(int vx, int vy);
    // Advances a glide to now; true while it moves.
    virtual bool tick();
    virtual int drawOffscreenBuffer();
    // Texts are JSON.
    virtual std::string getDocProperties() = 0;
    virtual std::string doSearch(const char* text) = 0;
    virtual int nextResult() = 0;
    virtual int previousResult() = 0;
    virtual int stopFind() = 0;
    virtual int clearSelection() = 0;
    virtual int drawCurrentResult(CpPixmap* frame) = 0;
    // Moves a position back to where the document is; true only when both axes
    // had to be, which callers take for an edge that ends a glide.
    // Without a surface nothing is moved.
    virtual bool clampPosition(int& x, int& y) const;
    virtual bool clampPosition(int& x, int& y, int maxX, int maxY) const;
    // Lays the document out again for mScale.
    virtual void resizeDocument() = 0;
    virtual int ReinitSearchRects() = 0;
    virtual void recenterDocument() = 0;
    virtual void eraseBuffer(unsigned int* frameBuffer, unsigned int count) const;

    // The worker's entry for a paint request. Does nothing while nothing has
    // changed or there is no surface; must not be called with mMutex held.
    void handlePaintRouter(unsigned int* frameBuffer);
    // Moves mScroll so that r (document pixels) is seen, off-centre towards the
    // document's middle. Neither clamps nor asks for a paint.
    void CenterAboutRect(const CpRect& r, bool flag);
    void setDirty() { mDirty = true; }
    // Marks the view changed and asks the client for a paint request.
    void InvalidateScreen();
    // Sends the client a notification about this view.
    void SendDocMessage(ClientMessageId id, int32_t value = 0);
    std::string getMimeInfo() const { return mMimeInfo; }

    doctype_t docType() const { return mDocType; }
    unsigned int dataStoreShmId() const { return mDataStoreShmId; }
    pthread_mutex_t* mutex() { return &mMutex; }

protected:
    // width and height are those of the client's frame buffer in pixels.
    OfficeBase(int width, int height, int docId, unsigned int dataStoreShmId, doctype_t type);

    // Every kind's constructor calls this last: attaches the segment it was
    // given and restores the state from it, or, where that cannot be, makes a
    // segment of its own (key ftok(keyPath, ...)) and saves the state there.
    void attachStateRecord(const char* keyPath);
    // Its two halves, for a kind that has something to do in between. The first
    // is false when there is no usable segment. Should the second fail, the view
    // works without a record, and its client gets no notifications.
    bool attachGivenStateRecord();
    void makeStateRecord(const char* keyPath);

    // Whether something else is shown over the document: its paints do not save
    // the state.
    virtual bool showsPopup() const { return false; }
    // Where the document is scrolled to, also while something is shown over it.
    virtual CpPoint pagePosition() const { return mScroll; }

    // Parts of the input handling that the kinds share.
    // Where mScroll follows the pen to, from where it went down; not clamped.
    CpPoint draggedPosition(int x, int y) const;
    // Clamps mScroll, and stops the glide at an edge.
    void clampScroll();
    // Takes what the last gesture frame showed over into mScale; false when it
    // showed no change, or one that leaves no usable scale.
    bool takeGestureScale();
    // Lays the document out again for a new scale. REQUIRES: mMutex held.
    void relayout();
    // Goes on to the next double-tap step; what mScale was multiplied by.
    float stepScaleLevel();
    // What a pinch asks for, relative to mScale, inside the zoom limits.
    double requestedScale(double pinch) const;
    // A pinch's first frame is not held to the zoom limits; this is what
    // arithmetic and modules can bear.
    static double bearableScale(double scale);
    // A pinch is shown with the last frame, as nothing is rendered until it ends:
    // above a scale of 1 a part of it on the whole frame, below all of it
    // somewhere in the frame (at 1 as it is). Both set mGestureAppliedScale and
    // the mGestureScroll that goes with what is seen.
    void magnifyLastFrame(unsigned int* frameBuffer, double scale, const CpRect& part);
    void shrinkLastFrame(unsigned int* frameBuffer, double scale, const CpRect& target);
    // The whole last frame on a part of the frame, the rest erased; sets the same.
    void fitLastFrame(unsigned int* frameBuffer, double scale, const CpRect& target);
    // The client's frame as it was last shown. REQUIRES: all of it is painted.
    void keepFrame(const unsigned int* frameBuffer);
    // Where an axis of mScroll must be, after the scale changed by ratio, for a
    // point (view pixels) to come to the middle of the view.
    static int centredPosition(int scroll, int point, float ratio, int viewLength);
    // A column (document pixels) moved off-centre, towards the document's middle.
    long long offCentre(long long x) const;
    // Pixels of a frame; 0 for a view without area.
    unsigned int framePixels() const;

    pthread_mutex_t mMutex;
    double mMinScale = 1.0;
    double mMaxScale = 4.0;
    double mGestureAppliedScale = 1.0;
    int mDocId;
    CpPixmap* mDocPixmap = nullptr; // the rendered surface; owned by the subclass
    CpPixmap mLastFrame;            // what the client was last shown
    CpPoint mScroll{0, 0};
    int mWidth;
    int mHeight;
    double mScale = 1.0;
    double mBaseScale = 1.0; // the scale at which the document fits
    int mScaleLevel = 0;     // double-tap step, 0 to 2
    StateRecord* mDataStore = nullptr;
    unsigned int mDataStoreShmId;
    bool mPenDown = false;
    int mDrawMode = _NORMAL;
    bool mFlicking = false;         // a flick came during this contact
    bool mClicked = false;          // a click came during this contact
    bool mTapStoppedScroll = false; // the last pen down stopped a glide
    CpPoint mPenDownPoint{0, 0};
    CpPoint mPenDownScroll{0, 0};
    void* mModuleHandle = nullptr; // dlclosed by the destructor
    std::string mMimeInfo;         // no view fills it so far
    bool mFlickUp = false;         // the last flick's vertical velocity was negative
    CpPoint mGestureScroll{0, 0};
    bool mGestureActive = false;
    double mGestureRequestScale = 1.0; // relative to mScale
    int mCurrentResult = -1;           // -1: no search hit
    doctype_t mDocType;
    NewtonianSmoothScroll mScroller;
    bool mDirty = true;          // a paint request will paint
    bool mOffscreenDirty = true; // mDocPixmap must be rendered before it is copied

private:
    bool isVisible(const CpRect& r) const;

    StateSegment mStateSegment; // what mDataStore points into
};
