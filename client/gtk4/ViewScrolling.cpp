// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewScrolling.h"

namespace lectern::gtk4 {

namespace {

// Parts of what is in view, for clicks beside the slider and on its arrows.
constexpr double STEP = 0.1;
constexpr double PAGE = 0.9;

// In pixels of the widget. length: of the document.
void configure(GtkAdjustment* adjustment, double value, double length, double page) {
    // The place may be further than the length tells while a text is not laid out to its
    // end.
    const double upper = std::max({length, page, value + page});
    gtk_adjustment_configure(adjustment, value, 0, upper, page * STEP, page * PAGE, page);
}

} // namespace

ViewScrolling::ViewScrolling(ViewContext& context, const ViewPainting& painting)
    : mContext(context), mPainting(painting) {
    for (const char* property :
         {"notify::document-width", "notify::document-height", "notify::x", "notify::y"}) {
        mContext.onDocument(property, G_CALLBACK(onSignal<&ViewScrolling::sync>), this);
    }
}

ViewScrolling::~ViewScrolling() {
    release(GTK_ORIENTATION_HORIZONTAL);
    release(GTK_ORIENTATION_VERTICAL);
}

GLibHolder<GtkAdjustment>& ViewScrolling::holder(GtkOrientation orientation) {
    return orientation == GTK_ORIENTATION_HORIZONTAL ? mHorizontal : mVertical;
}

GtkAdjustment* ViewScrolling::adjustment(GtkOrientation orientation) const {
    return orientation == GTK_ORIENTATION_HORIZONTAL ? mHorizontal.get() : mVertical.get();
}

void ViewScrolling::release(GtkOrientation orientation) {
    if (GLibHolder<GtkAdjustment>& held = holder(orientation)) {
        g_signal_handlers_disconnect_by_data(held.get(), this);
        held.reset();
    }
}

void ViewScrolling::setAdjustment(GtkOrientation orientation, GtkAdjustment* adjustment) {
    if (adjustment != nullptr && adjustment == holder(orientation).get()) {
        return;
    }
    release(orientation);
    GtkAdjustment* taken = adjustment != nullptr ? adjustment : gtk_adjustment_new(0, 0, 0, 0, 0, 0);
    holder(orientation).reset(GTK_ADJUSTMENT(g_object_ref_sink(taken)));
    g_signal_connect_swapped(taken, "value-changed", G_CALLBACK(onSignal<&ViewScrolling::valueChanged>),
                             this);
    sync();
}

void ViewScrolling::reset() {
    mPending.giveUp();
    mScrollTo.giveUp();
    mPicturesAwaited = 0;
    sync();
}

void ViewScrolling::pictureArrived() {
    mPicturesAwaited = std::max(0, mPicturesAwaited - 1);
    sync();
}

void ViewScrolling::sync() {
    // What the user has moved the slider to counts more than the way of the document there.
    LecternDocument* document = mContext.openDocument();
    const bool isMoving = !mScrollTo.isIdle() || mPicturesAwaited > 0;
    if (!mHorizontal || !mVertical || isMoving || document == nullptr) {
        return;
    }
    const PixelGrid grid = mContext.grid();
    mIsSyncing = true;
    configure(mHorizontal.get(), grid.toWidget(lectern_document_get_x(document)),
              grid.toWidget(static_cast<double>(lectern_document_get_document_width(document))),
              grid.toWidget(lectern_document_get_visible_width(document)));
    configure(mVertical.get(), grid.toWidget(lectern_document_get_y(document)),
              grid.toWidget(static_cast<double>(lectern_document_get_document_height(document))),
              grid.toWidget(lectern_document_get_visible_height(document)));
    mIsSyncing = false;
}

void ViewScrolling::valueChanged() {
    if (!mIsSyncing && mHorizontal && mVertical) {
        const PixelGrid grid = mContext.grid();
        scrollTo({grid.toDevice(gtk_adjustment_get_value(mHorizontal.get())),
                  grid.toDevice(gtk_adjustment_get_value(mVertical.get()))});
    }
}

void ViewScrolling::scrollTo(Point place) {
    mScrollTo.want(place);
    scroll();
}

void ViewScrolling::scroll() {
    LecternDocument* document = mContext.openDocument();
    if (document == nullptr) {
        mScrollTo.giveUp();
        return;
    }
    if (const std::optional<Point> place = mScrollTo.begin()) {
        lectern_document_scroll_to_async(document, rounded(place->x), rounded(place->y), mPending.get(),
                                         asyncDone<&ViewScrolling::scrolled>, this);
    }
}

void ViewScrolling::scrolled(GObject* source, GAsyncResult* result) {
    const bool isDone = lectern_document_scroll_to_finish(LECTERN_DOCUMENT(source), result, nullptr) != FALSE;
    mScrollTo.finish();
    // The picture that is being painted may still show the place before.
    mPicturesAwaited = !isDone ? 0 : mPainting.isPainting() ? 2 : 1;
    scroll();
    sync();
}

} // namespace lectern::gtk4
