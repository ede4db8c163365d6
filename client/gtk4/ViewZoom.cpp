// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewZoom.h"

namespace lectern::gtk4 {

void ViewZoom::reset() {
    mPending.giveUp();
    mZoom.giveUp();
}

void ViewZoom::by(double factor, Point about) {
    if (LecternDocument* document = mContext.openDocument()) {
        to((mZoom.isIdle() ? lectern_document_get_zoom(document) : mGoal) * factor, about);
    }
}

void ViewZoom::toFit() {
    if (LecternDocument* document = mContext.openDocument()) {
        to(lectern_document_get_fit_zoom(document), MIDDLE);
    }
}

void ViewZoom::toWidth() {
    LecternDocument* document = mContext.openDocument();
    if (document == nullptr) {
        return;
    }
    // A text is laid out as wide as the view at every zoom.
    const auto width = static_cast<double>(lectern_document_get_document_width(document));
    if (mContext.isOf(LECTERN_DOCUMENT_KIND_TEXT) || width < 1) {
        toFit();
    } else {
        to(lectern_document_get_zoom(document) * lectern_document_get_width(document) / width, MIDDLE);
    }
}

void ViewZoom::to(double zoom, Point about) {
    LecternDocument* document = mContext.openDocument();
    const double smallest = lectern_document_get_smallest_zoom(document);
    const double largest = lectern_document_get_largest_zoom(document);
    mGoal = smallest < largest ? std::clamp(zoom, smallest, largest) : zoom;
    mZoom.want({mGoal, about});
    begin();
}

void ViewZoom::begin() {
    LecternDocument* document = mContext.openDocument();
    if (const auto zoom = document == nullptr ? std::nullopt : mZoom.begin()) {
        lectern_document_zoom_to_async(document, zoom->zoom, rounded(zoom->about.x), rounded(zoom->about.y),
                                       mPending.get(), asyncDone<&ViewZoom::finish>, this);
    }
}

void ViewZoom::finish(GObject* source, GAsyncResult* result) {
    lectern_document_zoom_to_finish(LECTERN_DOCUMENT(source), result, nullptr);
    mZoom.finish();
    begin();
}

} // namespace lectern::gtk4
