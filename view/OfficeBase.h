// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/PackedPixels.h"
#include "channel/DocAdapterCommon.h"
#include "raster/CpPixmap.h"
#include "view/ModuleArguments.h"
#include "view/NewtonianSmoothScroll.h"
#include "view/StateRecord.h"
#include "view/StateSegment.h"

#include <pthread.h>

#include <cstdint>
#include <string>
#include <vector>

// The kind of a document, with the values that clients get in "doctype".
enum doctype_t : int { _UNKNOWN = 0, _EXCEL = 1, _WORD = 2, _PPT = 3 };

// How a paint copies the surface. There is no mode 1.
enum DrawMode : int { _NORMAL = 0, _WIDE = 2, _LEFT = 3, _RIGHT = 4, _DOWN = 5 };

// The view of a document: holds the visible part and the zoom, moves them on input
// and paints. Each open document has one view, of a class derived from this one.
//
// Threads: every call is made by the main thread or the worker, with the registry's
// mutex locked. The view's own mutex is locked after it, by the operations that say
// so and by callers through mutex(). It is not recursive.
//
// Coordinates: x and y of input are in view pixels. mScroll and the bounds of
// mDocPixmap are in document pixels.
class OfficeBase {
public:
    virtual ~OfficeBase();
    OfficeBase(const OfficeBase&) = delete;
    OfficeBase& operator=(const OfficeBase&) = delete;

    // Save to and restore from the state record in shared memory. They do nothing if
    // there is none. Restoring ignores invalid values: a scale outside the view's
    // limits, a position below -2^30 or above 2^30, an unknown scale level.
    virtual void SaveStateToDataStore();
    virtual void RestoreStateFromDataStore();
    // Opens the file. Returns 0 or the module's code. A null password means none.
    virtual int openFile(const char* path, const char* password) = 0;
    // Paints mWidth * mHeight pixels 0xAARRGGBB. Locks mMutex. REQUIRES: the view has
    // a surface.
    virtual void handlePaint(unsigned int* frameBuffer);
    // Paints during a pinch. Sets mGestureAppliedScale and mGestureScroll.
    virtual void handlePaintGesture(unsigned int* frameBuffer) = 0;
    // Paints in the draw modes other than _NORMAL. Locks mMutex. The rotated copies
    // write a row or column past the frame. REQUIRES: the view has a surface.
    virtual void handlePaintWide(unsigned int* frameBuffer);
    virtual bool handleKeyDown(int key, int modifiers);
    virtual bool handleKeyUp(int key, int modifiers);
    virtual bool handlePenDown(int x, int y);
    virtual bool handlePenUp(int x, int y);
    virtual bool handlePenMove(int x, int y);
    // `scale` is the client's pinch factor; 1 means unchanged.
    virtual bool handleGestureStart(double scale, double unused);
    virtual bool handleGestureChange(double scale, double unused);
    virtual bool handleGestureEnd(double scale, double unused);
    virtual bool handleDoubleClick(int x, int y);
    // False if the view did not use the click; then the caller notifies the client.
    virtual bool handleClick(int x, int y);
    // vx and vy are the finger's velocity in pixels per second.
    virtual bool handleFlick(int vx, int vy);
    // A record of a type that the defined input does not have. False if the view does not
    // know it either.
    virtual bool handleRecord(const ClientServerMessage& /*message*/) { return false; }
    // Moves a glide to its position at the current time. True while it is moving.
    virtual bool tick();
    virtual int drawOffscreenBuffer();
    // The texts that these return are JSON.
    virtual std::string getDocProperties() = 0;
    virtual std::string doSearch(const char* text) = 0;
    virtual int nextResult() = 0;
    virtual int previousResult() = 0;
    virtual int stopFind() = 0;
    virtual int clearSelection() = 0;
    virtual int drawCurrentResult(CpPixmap* frame) = 0;
    // Limits a position to the document. True only if both axes were changed;
    // callers then end a glide. Without a surface it changes nothing.
    virtual bool clampPosition(int& x, int& y) const;
    virtual bool clampPosition(int& x, int& y, int maxX, int maxY) const;
    // Lays the document out for mScale.
    virtual void resizeDocument() = 0;
    virtual int ReinitSearchRects() = 0;
    virtual void recenterDocument() = 0;
    virtual void eraseBuffer(unsigned int* frameBuffer, unsigned int count) const;

    // Handles a paint request of the worker. Does nothing if the view is unchanged or
    // has no surface. Must not be called with mMutex locked.
    void handlePaintRouter(unsigned int* frameBuffer);
    // Moves mScroll so that r (document pixels) is visible; near the document's edges
    // not in the centre of the view but towards that edge. Does nothing if r is
    // visible already. Neither clamps nor requests a paint.
    void CenterAboutRect(const CpRect& r, bool flag);
    void setDirty() { mDirty = true; }
    // Gives back the memory of all pictures, and lets the module do the same: nobody has
    // used the view for a while. REQUIRES: wake() before any other call but this.
    void rest();
    // Restores the pictures. Does nothing unless the view rests.
    void wake();
    bool isResting() const { return !mResting.empty(); }
    // The memory of its pictures in bytes, also while they are packed.
    uint64_t pictureBytes();
    // Marks the view changed and notifies the client, which then requests a paint.
    void InvalidateScreen();
    // Sends the client a notification about this view. Does nothing if the view has
    // no state segment.
    void SendDocMessage(ClientMessageId id, int32_t value = 0, int32_t extra = 0);
    // Tells the client once when the module has given the document up. Call it after a use
    // of the view.
    void tellLoss();
    std::string getMimeInfo() const { return mMimeInfo; }

    // The module's code of the last layout or rendering of the surface. If it is not 0,
    // the picture is not what the view should show.
    int32_t renderResult() const { return mRenderResult; }
    doctype_t docType() const { return mDocType; }
    unsigned int dataStoreShmId() const { return mDataStoreShmId; }
    pthread_mutex_t* mutex() { return &mMutex; }

protected:
    // width and height are those of the client's frame buffer, in pixels.
    OfficeBase(int width, int height, int docId, unsigned int dataStoreShmId, doctype_t type);

    // The last step of every derived constructor is this or its two halves below.
    // Attaches the given state segment and restores the state from it. If that fails,
    // creates a segment (with the key ftok(keyPath, ...)) and saves the state there.
    void attachStateRecord(const char* keyPath);
    // The two halves of attachStateRecord(), for a class that does something in
    // between. The first returns false if there is no usable segment. If the second
    // fails, the view works without a record and its client gets no notifications.
    bool attachGivenStateRecord();
    void makeStateRecord(const char* keyPath);

    // The document as the module knows it; null while none is open.
    virtual void* moduleDocument() const { return nullptr; }
    // The view's pictures; the pointers may be null.
    virtual std::vector<CpPixmap*> pictures() { return {&mLastFrame, mDocPixmap}; }
    // Lets the module release memory of the open document.
    virtual void releaseModuleMemory() {}

    // Whether a pop-up is shown over the document. Paints do not save the state then.
    virtual bool showsPopup() const { return false; }
    // Where the document is scrolled to, also while something is shown over it.
    virtual CpPoint pagePosition() const { return mScroll; }

    // Parts of the input handling that derived classes share.
    // The position of mScroll for a drag from the pen-down point to (x, y). Not
    // clamped.
    CpPoint draggedPosition(int x, int y) const;
    // Clamps mScroll. Stops the glide if that changed both axes.
    void clampScroll();
    // Multiplies mScale by the scale of the last gesture frame. Returns false, and
    // changes nothing, if that scale is 1 or the result is not finite and positive.
    bool takeGestureScale();
    // Lays the document out for a new scale. REQUIRES: mMutex is locked.
    void relayout();
    // Goes to the next double-tap level. Returns the factor of the change of mScale.
    float stepScaleLevel();
    // The scale that a pinch requests, relative to mScale and inside the zoom limits.
    double requestedScale(double pinch) const;
    // Limits a scale to a range that arithmetic and modules can handle, 1/16 to 64.
    // A pinch's first frame is not limited by the zoom limits.
    static double bearableScale(double scale);
    // Show a pinch by scaling the last frame, because nothing is rendered until the
    // pinch ends. With a scale above 1, `part` of the last frame fills the frame
    // buffer. With a scale below 1, the whole last frame is shrunk into `target`; at 1
    // it is copied. Both set mGestureAppliedScale, and mGestureScroll to the position
    // that the picture shows.
    void magnifyLastFrame(unsigned int* frameBuffer, double scale, const CpRect& part);
    void shrinkLastFrame(unsigned int* frameBuffer, double scale, const CpRect& target);
    // The whole last frame on a part of the frame, the rest erased; sets the same.
    void fitLastFrame(unsigned int* frameBuffer, double scale, const CpRect& target);
    // While the document cannot be rendered: copies the last frame to the client's, and lets
    // the next paint try again. False, and nothing is done, when it can, or without a frame.
    bool repeatLastFrame(unsigned int* frameBuffer);
    // Copies the client's frame to mLastFrame. REQUIRES: all of the frame is painted.
    void keepFrame(const unsigned int* frameBuffer);
    // The position of one axis of mScroll that centres a point (view pixels) in the
    // view after the scale was multiplied by ratio.
    static int centredPosition(int scroll, int point, float ratio, int viewLength);
    // Shifts a column (document pixels) towards the document's centre if it is near
    // the left or right edge of the document.
    long long offCentre(long long x) const;
    // The number of pixels of a frame; 0 if a side is below 1.
    unsigned int framePixels() const;

    pthread_mutex_t mMutex;
    double mMinScale = 1.0; // the zoom limits
    double mMaxScale = 4.0;
    double mGestureAppliedScale = 1.0; // of the last frame of a pinch, relative to mScale
    int mDocId;
    CpPixmap* mDocPixmap = nullptr; // the rendered surface; the derived class owns it
    CpPixmap mLastFrame;            // the last frame that the client was shown
    CpPoint mScroll{0, 0};          // the document pixel at the view's top left
    int mWidth;                     // of the view and the client's frame, in pixels
    int mHeight;
    double mDotsPerInch = DOTS_PER_INCH;
    double mScale = 1.0;               // the zoom; at 1 a document is shown with mDotsPerInch
    double mBaseScale = 1.0;           // the scale at which the document fits the view
    int mScaleLevel = 0;               // double-tap level, 0 to 2
    StateRecord* mDataStore = nullptr; // null without a state segment
    unsigned int mDataStoreShmId;      // the state segment's identifier, also the queue type of notifications
    bool mPenDown = false;
    int mDrawMode = _NORMAL;
    bool mFlicking = false;         // a flick came during this contact
    bool mClicked = false;          // a click came during this contact
    bool mTapStoppedScroll = false; // the last pen down stopped a glide
    CpPoint mPenDownPoint{0, 0};    // view pixels
    CpPoint mPenDownScroll{0, 0};   // mScroll at the last pen down
    void* mModuleHandle = nullptr;  // the destructor closes it
    std::string mMimeInfo;          // always empty: no view sets it
    bool mFlickUp = false;          // the last flick's vertical velocity was negative
    CpPoint mGestureScroll{0, 0};   // mScroll that the last frame of a pinch shows
    bool mGestureActive = false;
    double mGestureRequestScale = 1.0; // relative to mScale
    int mCurrentResult = -1;           // index of the current search hit; -1 for none
    doctype_t mDocType;
    NewtonianSmoothScroll mScroller;
    bool mDirty = true;          // a paint request will paint
    int32_t mRenderResult = 0;   // see renderResult()
    bool mOffscreenDirty = true; // mDocPixmap must be rendered before it is copied
    bool mUnrendered = false;    // ... and the last attempt to do so has failed
    bool mHasShown = false;      // mLastFrame is a picture of the document

private:
    bool isVisible(const CpRect& r) const;

    StateSegment mStateSegment; // the segment that mDataStore points to
    bool mLossTold = false;
    std::vector<lectern::PackedPixels> mResting; // the pictures() while the view rests, else none
};
