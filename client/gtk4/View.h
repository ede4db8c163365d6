// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/ViewAccessible.h"
#include "client/gtk4/ViewContext.h"
#include "client/gtk4/ViewGive.h"
#include "client/gtk4/ViewHandles.h"
#include "client/gtk4/ViewInput.h"
#include "client/gtk4/ViewMenu.h"
#include "client/gtk4/ViewMoves.h"
#include "client/gtk4/ViewPainting.h"
#include "client/gtk4/ViewRecovery.h"
#include "client/gtk4/ViewScrolling.h"
#include "client/gtk4/ViewSelection.h"
#include "client/gtk4/ViewSizing.h"
#include "client/gtk4/ViewZoom.h"

#include <functional>
#include <string>

namespace lectern::gtk4 {

// What a view tells its program.
struct ViewEvents {
    std::function<void(const char* uri)> onLink;
    std::function<void(const GError*)> onFailure;
    std::function<void()> onSelectionChange; // there is one, or no longer one
};

// Everything behind a LecternView: the document and the parts that show and move it.
class View {
public:
    View(GtkWidget* widget, ViewEvents events);
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    LecternDocument* document() const { return mContext.document(); }
    // Returns whether it is another one.
    bool setDocument(LecternDocument* document);
    // REQUIRES: the widget is being disposed of.
    void dispose();

    ViewContext& context() { return mContext; }
    ViewScrolling& scrolling() { return mScrolling; }
    ViewZoom& zoom() { return mZoom; }

    bool isNight() const { return mIsNight; }
    void setNight(bool isNight);

    bool hasSelection() const { return mSelection.exists(); }
    void copy() { mSelection.copy(); }
    void selectAll();
    void clearSelection();
    void openSelectedLink();
    void popUpMenu() { mMenu.popUp(); }

    void show(bool isShown) { mPainting.show(isShown); }
    void allocate(int width, int height);
    // The screen has another scale or other dots per inch.
    void screenChanged();
    void snapshot(GtkSnapshot* snapshot);

private:
    void snapshotNight(GtkSnapshot* snapshot, const PixelGrid& grid) const;
    void pictureArrived();
    void selectionChanged();
    void selectionMoved();
    void motionChanged();
    void clickUnused();
    void linkTapped();
    void linkRead(GObject* source, GAsyncResult* result);

    ViewContext mContext;
    ViewEvents mEvents;
    ViewPainting mPainting;
    ViewSizing mSizing;
    ViewScrolling mScrolling;
    ViewZoom mZoom;
    ViewMoves mMoves;
    ViewGive mGive;
    ViewSelection mSelection;
    ViewHandles mHandles;
    ViewMenu mMenu;
    ViewInput mInput;
    ViewAccessible mAccessible;
    ViewRecovery mRecovery;
    bool mIsNight = false;
    bool mHadSelection = false;
    Point mPlace; // of the picture in the document
    double mZoomShown = 0;
    Pending mPending;
};

} // namespace lectern::gtk4
