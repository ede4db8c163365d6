// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewMoves.h"

namespace lectern::gtk4 {

namespace {

// Ways in pixels of the widget.
constexpr double ARROW = 48; // about two lines of text
constexpr double NOTCH = 96; // of a wheel: about four lines
constexpr double PAGE = 0.9; // of the view: the rest is seen again, to find the place

constexpr double WHEEL_ZOOM = 1.1; // of one notch

} // namespace

ViewMoves::ViewMoves(ViewContext& context, ViewScrolling& scrolling, ViewZoom& zoom)
    : mContext(context), mScrolling(scrolling), mZoom(zoom) {
    GtkEventController* keys = gtk_event_controller_key_new();
    g_signal_connect(keys, "key-pressed", G_CALLBACK(onKey), this);
    gtk_widget_add_controller(context.widget(), keys);

    GtkEventController* scroll = gtk_event_controller_scroll_new(static_cast<GtkEventControllerScrollFlags>(
        GTK_EVENT_CONTROLLER_SCROLL_BOTH_AXES | GTK_EVENT_CONTROLLER_SCROLL_KINETIC));
    g_signal_connect(scroll, "scroll", G_CALLBACK(onScroll), this);
    g_signal_connect(scroll, "decelerate", G_CALLBACK(onDecelerate), this);
    gtk_widget_add_controller(context.widget(), scroll);

    GtkEventController* motion = gtk_event_controller_motion_new();
    g_signal_connect(motion, "enter", G_CALLBACK(onPointer), this);
    g_signal_connect(motion, "motion", G_CALLBACK(onPointer), this);
    gtk_widget_add_controller(context.widget(), motion);
}

void ViewMoves::reset() {
    mPending.giveUp();
    mRest = {};
}

void ViewMoves::scrollBy(Point way) {
    LecternDocument* document = mContext.openDocument();
    if (document == nullptr) {
        return;
    }
    mRest = mRest + way;
    const Point whole{std::trunc(mRest.x), std::trunc(mRest.y)};
    if (whole != Point()) {
        mRest = mRest - whole;
        lectern_document_scroll_by(document, rounded(whole.x), rounded(whole.y));
    }
}

void ViewMoves::turn(int way) {
    LecternDocument* document = mContext.openDocument();
    if (document == nullptr) {
        return;
    }
    const int part = lectern_document_get_part(document) + way;
    if (part >= 0 && part < lectern_document_get_n_parts(document)) {
        // Counts from the part that is shown, so a turn before that changes has no further effect.
        lectern_document_go_to_part_async(document, part, mPending.get(), nullptr, nullptr);
    }
}

void ViewMoves::make(KeyMove move) {
    LecternDocument* document = mContext.openDocument();
    if (document == nullptr) {
        return;
    }
    const PixelGrid grid = mContext.grid();
    const double arrow = grid.toDevice(ARROW);
    const double page = lectern_document_get_height(document) * PAGE;
    switch (move) {
    case KeyMove::Up:
        return scrollBy({0, -arrow});
    case KeyMove::Down:
        return scrollBy({0, arrow});
    case KeyMove::Left:
        return scrollBy({-arrow, 0});
    case KeyMove::Right:
        return scrollBy({arrow, 0});
    case KeyMove::PageUp:
        return scrollBy({0, -page});
    case KeyMove::PageDown:
        return scrollBy({0, page});
    case KeyMove::Start:
        return mScrolling.scrollTo({0, 0});
    case KeyMove::End:
        return mScrolling.scrollTo({0, static_cast<double>(lectern_document_get_document_height(document))});
    case KeyMove::PreviousSlide:
        return turn(-1);
    case KeyMove::NextSlide:
        return turn(1);
    case KeyMove::ZoomIn:
        return mZoom.by(ViewZoom::STEP);
    case KeyMove::ZoomOut:
        return mZoom.by(1 / ViewZoom::STEP);
    case KeyMove::ZoomToFit:
        return mZoom.toFit();
    }
}

gboolean ViewMoves::onKey(GtkEventControllerKey* /*keys*/, guint key, guint /*code*/,
                          GdkModifierType modifiers, gpointer self) {
    auto* moves = static_cast<ViewMoves*>(self);
    LecternDocument* document = moves->mContext.openDocument();
    if (document == nullptr) {
        return FALSE;
    }
    // 1.01: zooms are rounded a little.
    const KeyPlace place{moves->mContext.isOf(LECTERN_DOCUMENT_KIND_PRESENTATION),
                         lectern_document_get_zoom(document) > lectern_document_get_fit_zoom(document) * 1.01,
                         moves->mContext.isPresenting()};
    const std::optional<KeyMove> move = keyMove(key, modifiers, place);
    if (move) {
        moves->make(*move);
    }
    return move.has_value();
}

gboolean ViewMoves::onScroll(GtkEventControllerScroll* scroll, double dx, double dy, gpointer self) {
    auto* moves = static_cast<ViewMoves*>(self);
    const GdkModifierType modifiers =
        gtk_event_controller_get_current_event_state(GTK_EVENT_CONTROLLER(scroll));
    const bool isWheel = gtk_event_controller_scroll_get_unit(scroll) == GDK_SCROLL_UNIT_WHEEL;
    const double notches = isWheel ? dy : dy / NOTCH;
    if ((modifiers & GDK_CONTROL_MASK) != 0) {
        moves->mZoom.by(std::pow(WHEEL_ZOOM, -notches), moves->mPointer);
        return TRUE;
    }
    const double unit = moves->mContext.grid().toDevice(isWheel ? NOTCH : 1);
    const bool isTurned = isWheel && (modifiers & GDK_SHIFT_MASK) != 0 && dx == 0;
    moves->scrollBy(isTurned ? Point{dy * unit, 0} : Point{dx * unit, dy * unit});
    return TRUE;
}

// The fingers have left the trackpad: the service glides on. A flick moves the document
// with the fingers, a scroll moves the view.
void ViewMoves::onDecelerate(GtkEventControllerScroll* /*scroll*/, double vx, double vy, gpointer self) {
    auto* moves = static_cast<ViewMoves*>(self);
    if (LecternDocument* document = moves->mContext.openDocument()) {
        const Point velocity = moves->mContext.grid().toDevice(vx, vy);
        lectern_document_flick(document, rounded(-velocity.x), rounded(-velocity.y));
    }
}

void ViewMoves::onPointer(GtkEventControllerMotion* /*motion*/, double x, double y, gpointer self) {
    auto* moves = static_cast<ViewMoves*>(self);
    moves->mPointer = moves->mContext.grid().toDevice(x, y);
}

} // namespace lectern::gtk4
