// SPDX-License-Identifier: Apache-2.0
// From GTK's gestures to contacts.
#include "client/gtk4/ViewInput.h"

#include <utility>

namespace lectern::gtk4 {

namespace {

MouseContact::Limits mouseLimits(GtkWidget* widget, double scale) {
    int time = 0;
    int radius = 0;
    int threshold = 0;
    g_object_get(gtk_widget_get_settings(widget), "gtk-double-click-time", &time, "gtk-double-click-distance",
                 &radius, "gtk-dnd-drag-threshold", &threshold, nullptr);
    return {Milliseconds(time), radius * scale, threshold * scale};
}

Milliseconds timeOf(GtkEventController* controller) {
    return Milliseconds(gtk_event_controller_get_current_event_time(controller));
}

// Where a drag is now: gestures tell the way from its start.
Point dragPlace(GtkGestureDrag* drag, const PixelGrid& grid, double x, double y) {
    double startX = 0;
    double startY = 0;
    gtk_gesture_drag_get_start_point(drag, &startX, &startY);
    return grid.toDevice(startX + x, startY + y);
}

Point pinchCentre(GtkGesture* zoom, const PixelGrid& grid) {
    double x = 0;
    double y = 0;
    gtk_gesture_get_bounding_box_center(zoom, &x, &y);
    return grid.toDevice(x, y);
}

} // namespace

ViewInput::ViewInput(ViewContext& context, ViewSelection& selection, ViewHandles& handles, ViewMenu& menu)
    : mContext(context), mSelection(selection), mHandles(handles), mMenu(menu) {
    reset();
    addControllers();
}

ViewInput::~ViewInput() {
    stopHold();
}

void ViewInput::reset() {
    stopHold();
    mContact = Contact::None;
    mDrag = Drag::None;
    mTouch.emplace(static_cast<TouchReceiver&>(*this), mContext.dpi());
    mMouse.emplace(static_cast<MouseReceiver&>(*this),
                   mouseLimits(mContext.widget(), mContext.grid().scale()));
}

void ViewInput::addControllers() {
    GtkWidget* widget = mContext.widget();
    GtkGesture* drag = gtk_gesture_drag_new();
    g_signal_connect(drag, "drag-begin", G_CALLBACK(onDragBegin), this);
    g_signal_connect(drag, "drag-update", G_CALLBACK(onDragUpdate), this);
    g_signal_connect(drag, "drag-end", G_CALLBACK(onDragEnd), this);
    g_signal_connect(drag, "cancel", G_CALLBACK(onDragCancel), this);
    gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(drag));

    // Added after the drag, so that it hears of a second finger before that ends the drag.
    // Not in a group with it: a drag refuses second fingers for its whole group.
    GtkGesture* zoom = gtk_gesture_zoom_new();
    g_signal_connect(zoom, "begin", G_CALLBACK(onPinchBegin), this);
    g_signal_connect(zoom, "scale-changed", G_CALLBACK(onPinchScale), this);
    g_signal_connect(zoom, "end", G_CALLBACK(onPinchEnd), this);
    g_signal_connect(zoom, "cancel", G_CALLBACK(onPinchCancel), this);
    gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(zoom));

    GtkGesture* secondary = gtk_gesture_click_new();
    gtk_gesture_single_set_button(GTK_GESTURE_SINGLE(secondary), GDK_BUTTON_SECONDARY);
    g_signal_connect(secondary, "pressed", G_CALLBACK(onSecondaryPress), this);
    gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(secondary));
}

void ViewInput::startHold() {
    const auto hold = [](gpointer self) -> gboolean {
        auto* input = static_cast<ViewInput*>(self);
        input->mHoldTimer = 0;
        input->mTouch->hold();
        return G_SOURCE_REMOVE;
    };
    stopHold();
    mHoldTimer = g_timeout_add(static_cast<guint>(TouchContact::HOLD.count()), hold, this);
}

void ViewInput::stopHold() {
    if (mHoldTimer != 0) {
        g_source_remove(std::exchange(mHoldTimer, 0));
    }
}

void ViewInput::down(GtkGestureDrag* drag, Point at) {
    gtk_widget_grab_focus(mContext.widget());
    mMenu.close();
    // Only fingers have sequences of events.
    const bool isTouch = gtk_gesture_single_get_current_sequence(GTK_GESTURE_SINGLE(drag)) != nullptr;
    const Milliseconds time = timeOf(GTK_EVENT_CONTROLLER(drag));
    if (mHandles.grab(at)) {
        mContact = Contact::Handle;
    } else if (isTouch) {
        mContact = Contact::Touch;
        mTouch->down(at, time);
        startHold();
    } else {
        mContact = Contact::Mouse;
        mMouse->press(at, time);
    }
}

void ViewInput::onDragBegin(GtkGestureDrag* drag, double x, double y, gpointer self) {
    auto* input = static_cast<ViewInput*>(self);
    input->down(drag, input->mContext.grid().toDevice(x, y));
}

void ViewInput::onDragUpdate(GtkGestureDrag* drag, double x, double y, gpointer self) {
    auto* input = static_cast<ViewInput*>(self);
    const Point at = dragPlace(drag, input->mContext.grid(), x, y);
    if (input->mContact == Contact::Handle) {
        input->mHandles.drag(at);
    } else if (input->mContact == Contact::Touch) {
        input->mTouch->move(at, timeOf(GTK_EVENT_CONTROLLER(drag)));
        if (!input->mTouch->isResting()) {
            input->stopHold();
        }
    } else if (input->mContact == Contact::Mouse) {
        input->mMouse->move(at);
    }
}

void ViewInput::onDragEnd(GtkGestureDrag* drag, double x, double y, gpointer self) {
    auto* input = static_cast<ViewInput*>(self);
    const Point at = dragPlace(drag, input->mContext.grid(), x, y);
    input->stopHold();
    const Contact contact = std::exchange(input->mContact, Contact::None);
    if (contact == Contact::Handle) {
        input->mHandles.release();
        input->mMenu.popUp(ViewMenu::By::Touch, at);
    } else if (contact == Contact::Touch) {
        input->mTouch->up(at, timeOf(GTK_EVENT_CONTROLLER(drag)));
    } else if (contact == Contact::Mouse) {
        input->mMouse->release(at);
    }
}

// Comes before "drag-end".
void ViewInput::onDragCancel(GtkGesture* /*drag*/, GdkEventSequence* /*sequence*/, gpointer self) {
    auto* input = static_cast<ViewInput*>(self);
    input->stopHold();
    const Contact contact = std::exchange(input->mContact, Contact::None);
    if (contact == Contact::Handle) {
        input->mHandles.release();
    } else if (contact == Contact::Touch) {
        input->mTouch->cancel();
    } else if (contact == Contact::Mouse) {
        input->mMouse->cancel();
    }
}

void ViewInput::onPinchBegin(GtkGesture* zoom, GdkEventSequence* /*sequence*/, gpointer self) {
    auto* input = static_cast<ViewInput*>(self);
    input->stopHold();
    input->mMenu.close();
    input->mTouch->pinchBegins(pinchCentre(zoom, input->mContext.grid()));
    gtk_gesture_set_state(zoom, GTK_EVENT_SEQUENCE_CLAIMED);
}

void ViewInput::onPinchScale(GtkGestureZoom* zoom, double scale, gpointer self) {
    auto* input = static_cast<ViewInput*>(self);
    input->mTouch->pinchMoves(pinchCentre(GTK_GESTURE(zoom), input->mContext.grid()), scale);
}

void ViewInput::onPinchEnd(GtkGesture* /*zoom*/, GdkEventSequence* /*sequence*/, gpointer self) {
    static_cast<ViewInput*>(self)->mTouch->pinchEnds(false);
}

void ViewInput::onPinchCancel(GtkGesture* /*zoom*/, GdkEventSequence* /*sequence*/, gpointer self) {
    static_cast<ViewInput*>(self)->mTouch->pinchEnds(true);
}

void ViewInput::onSecondaryPress(GtkGestureClick* /*click*/, int /*count*/, double x, double y,
                                 gpointer self) {
    auto* input = static_cast<ViewInput*>(self);
    gtk_widget_grab_focus(input->mContext.widget());
    input->mMenu.popUp(ViewMenu::By::Mouse, input->mContext.grid().toDevice(x, y));
}

} // namespace lectern::gtk4
