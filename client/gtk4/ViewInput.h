// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/MouseContact.h"
#include "client/gtk4/TouchContact.h"
#include "client/gtk4/ViewContext.h"
#include "client/gtk4/ViewHandles.h"
#include "client/gtk4/ViewMenu.h"
#include "client/gtk4/ViewSelection.h"

#include <optional>

namespace lectern::gtk4 {

// Passes fingers and the mouse on to the document and its selection.
class ViewInput : private TouchReceiver, private MouseReceiver {
public:
    ViewInput(ViewContext& context, ViewSelection& selection, ViewHandles& handles, ViewMenu& menu);
    ~ViewInput() override;
    ViewInput(const ViewInput&) = delete;
    ViewInput& operator=(const ViewInput&) = delete;

    // Another document or another screen: contacts end, and their measures are new.
    void reset();

private:
    void penDown(Point at) override;
    void penMove(Point at) override;
    void penUp(Point at) override;
    void flick(Point velocity) override;
    void tap(Point at) override;
    void doubleTap(Point at) override;
    void holdBegins(Point at) override;
    void holdMoves(Point at) override;
    void holdEnds(Point at) override;
    void pinch(Point centre, double factor, LecternPinchPhase phase) override;

    void click(Point at) override;
    void pressTwice(Point at) override;
    void pressThrice(Point at) override;
    void dragBegins(Point from) override;
    void dragMoves(Point at) override;
    void dragEnds(Point at) override;

    void addControllers();
    void startHold();
    void stopHold();
    void down(GtkGestureDrag* drag, Point at);
    static void onDragBegin(GtkGestureDrag* drag, double x, double y, gpointer self);
    static void onDragUpdate(GtkGestureDrag* drag, double x, double y, gpointer self);
    static void onDragEnd(GtkGestureDrag* drag, double x, double y, gpointer self);
    static void onDragCancel(GtkGesture* drag, GdkEventSequence* sequence, gpointer self);
    static void onPinchBegin(GtkGesture* zoom, GdkEventSequence* sequence, gpointer self);
    static void onPinchScale(GtkGestureZoom* zoom, double scale, gpointer self);
    static void onPinchEnd(GtkGesture* zoom, GdkEventSequence* sequence, gpointer self);
    static void onPinchCancel(GtkGesture* zoom, GdkEventSequence* sequence, gpointer self);
    static void onSecondaryPress(GtkGestureClick* click, int count, double x, double y, gpointer self);

    ViewContext& mContext;
    ViewSelection& mSelection;
    ViewHandles& mHandles;
    ViewMenu& mMenu;
    std::optional<TouchContact> mTouch;
    std::optional<MouseContact> mMouse;
    // Which of them the contact belongs to.
    enum class Contact { None, Touch, Mouse, Handle };
    Contact mContact = Contact::None;
    // A drag of the mouse selects if it began on something to select, and pans else;
    // which of the two is known after a moment.
    enum class Drag { None, Asking, Selecting, Panning };
    Drag mDrag = Drag::None;
    Point mDragFrom;
    Point mDragAt;
    guint mHoldTimer = 0;
};

} // namespace lectern::gtk4
