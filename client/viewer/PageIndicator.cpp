// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/PageIndicator.h"

#include "client/viewer/PlaceText.h"

namespace lectern::viewer {

namespace {

constexpr guint TIME_AT_REST = 1200; // ms from the last movement to the fading, long enough to read it

} // namespace

PageIndicator::PageIndicator(Shell& shell, const SheetTabs& tabs)
    : Part(shell), mTabs(tabs), mRevealer(GTK_REVEALER(mUi.object("revealer"))), mText(mUi.label("text")) {
    onDocument<&PageIndicator::moved>("notify::x", this);
    onDocument<&PageIndicator::moved>("notify::y", this);
    onDocument<&PageIndicator::moved>("notify::part", this);
}

PageIndicator::~PageIndicator() {
    stopTimer();
}

void PageIndicator::show(LecternDocument* /*document*/) {
    stopTimer();
    gtk_revealer_set_reveal_child(mRevealer, FALSE);
}

void PageIndicator::moved() {
    LecternDocument* open = document();
    if (open == nullptr) {
        return;
    }
    gtk_label_set_text(mText, placeText({.kind = lectern_document_get_kind(open),
                                         .part = lectern_document_get_part(open),
                                         .parts = lectern_document_get_n_parts(open),
                                         .sheet = mTabs.shownName(),
                                         .y = lectern_document_get_y(open),
                                         .height = lectern_document_get_height(open),
                                         .documentHeight = lectern_document_get_document_height(open)})
                                  .c_str());
    gtk_revealer_set_reveal_child(mRevealer, TRUE);
    fadeOutLater();
}

void PageIndicator::fadeOutLater() {
    stopTimer();
    const auto fadeOut = [](void* data) -> gboolean {
        auto* self = static_cast<PageIndicator*>(data);
        self->mTimer = 0;
        gtk_revealer_set_reveal_child(self->mRevealer, FALSE);
        return G_SOURCE_REMOVE;
    };
    mTimer = g_timeout_add(TIME_AT_REST, fadeOut, this);
}

void PageIndicator::stopTimer() {
    if (mTimer != 0) {
        g_source_remove(mTimer);
        mTimer = 0;
    }
}

} // namespace lectern::viewer
