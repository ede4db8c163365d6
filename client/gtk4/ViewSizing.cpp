// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewSizing.h"

namespace lectern::gtk4 {

namespace {

// The widget's own size or, while it has none, that of the nearest ancestor that does: a
// view in a page of a stack that is not shown yet gets about that.
Size expectedSize(GtkWidget* widget, const PixelGrid& grid) {
    for (GtkWidget* place = widget; place != nullptr; place = gtk_widget_get_parent(place)) {
        int width = gtk_widget_get_width(place);
        int height = gtk_widget_get_height(place);
        if (GTK_IS_WINDOW(place) && (width <= 0 || height <= 0)) {
            gtk_window_get_default_size(GTK_WINDOW(place), &width, &height);
        }
        if (width > 0 && height > 0) {
            return grid.picture(width, height);
        }
    }
    return {};
}

} // namespace

ViewSizing::ViewSizing(ViewContext& context) : mContext(context) {
    mContext.onDocument("notify::opened", G_CALLBACK(onSignal<&ViewSizing::fit>), this);
    mContext.onDocument("notify::gone", G_CALLBACK(onSignal<&ViewSizing::fit>), this);
}

void ViewSizing::reset() {
    mPending.giveUp();
    mResize.giveUp();
}

void ViewSizing::prepare() {
    LecternDocument* document = mContext.document();
    if (document == nullptr || lectern_document_get_opened(document) != FALSE) {
        return;
    }
    const Size size = expectedSize(mContext.widget(), mContext.grid());
    g_object_set(document, "dpi", mContext.dpi(), nullptr);
    if (size != Size()) {
        g_object_set(document, "width", size.width, "height", size.height, nullptr);
    }
}

void ViewSizing::fit() {
    GtkWidget* widget = mContext.widget();
    const int width = gtk_widget_get_width(widget);
    const int height = gtk_widget_get_height(widget);
    if (mContext.openDocument() != nullptr && width > 0 && height > 0) {
        mResize.want(mContext.grid().picture(width, height));
        resize();
    }
}

void ViewSizing::resize() {
    LecternDocument* document = mContext.openDocument();
    const std::optional<Size> size = document == nullptr ? std::nullopt : mResize.begin();
    if (!size) {
        return;
    }
    if (*size == Size{lectern_document_get_width(document), lectern_document_get_height(document)}) {
        mResize.finish();
        return;
    }
    lectern_document_resize_async(document, size->width, size->height, mPending.get(),
                                  asyncDone<&ViewSizing::resized>, this);
}

void ViewSizing::resized(GObject* source, GAsyncResult* result) {
    // After a failure the picture keeps its size, until the next one is wanted.
    lectern_document_resize_finish(LECTERN_DOCUMENT(source), result, nullptr);
    mResize.finish();
    resize();
}

} // namespace lectern::gtk4
