// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewPainting.h"

#include <utility>

namespace lectern::gtk4 {

ViewPainting::ViewPainting(ViewContext& context, std::function<void()> onPicture)
    : mContext(context), mOnPicture(std::move(onPicture)) {
    mContext.onDocument("invalidated", G_CALLBACK(onSignal<&ViewPainting::want>), this);
    mContext.onDocument("notify::opened", G_CALLBACK(onSignal<&ViewPainting::want>), this);
    mContext.onDocument("notify::gone", G_CALLBACK(onSignal<&ViewPainting::want>), this);
}

ViewPainting::~ViewPainting() {
    if (mTick != 0) {
        gtk_widget_remove_tick_callback(mContext.widget(), mTick);
    }
}

void ViewPainting::reset() {
    mPending.giveUp();
    mPacing.giveUp();
    mFrames.clear();
    gtk_widget_queue_draw(mContext.widget());
    want();
}

void ViewPainting::show(bool isShown) {
    mPacing.show(isShown);
    paint();
}

void ViewPainting::want() {
    mPacing.want();
    paint();
}

void ViewPainting::paint() {
    LecternDocument* document = mContext.openDocument();
    if (document != nullptr && mPacing.begin()) {
        lectern_document_paint_async(document, mPending.get(), asyncDone<&ViewPainting::painted>, this);
    }
}

void ViewPainting::painted(GObject* source, GAsyncResult* result) {
    LecternDocument* document = LECTERN_DOCUMENT(source);
    LecternRectangle damage = {};
    const bool isDone = lectern_document_paint_finish(document, result, &damage, nullptr) != FALSE;
    mPacing.finish();
    awaitTick();
    if (!isDone) {
        return; // the picture before stays; "invalidated" or another document asks again
    }
    Size size;
    if (GBytes* frame = lectern_document_get_frame(document, &size.width, &size.height)) {
        mFrames.update(frame, size, damage);
    }
    mOnPicture();
    if (damage.width > 0 && damage.height > 0) {
        gtk_widget_queue_draw(mContext.widget());
    }
}

void ViewPainting::awaitTick() {
    if (mTick == 0) {
        mTick = gtk_widget_add_tick_callback(mContext.widget(), onTick, this, nullptr);
    }
}

gboolean ViewPainting::onTick(GtkWidget* /*widget*/, GdkFrameClock* /*clock*/, gpointer self) {
    auto* painting = static_cast<ViewPainting*>(self);
    painting->mTick = 0;
    painting->mPacing.tick();
    painting->paint();
    return G_SOURCE_REMOVE;
}

} // namespace lectern::gtk4
