// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Bookmark.h"

#include <cmath>
#include <utility>

namespace lectern::viewer {

namespace {

constexpr guint REST_SECONDS = 2;

std::string uriOf(LecternDocument* document) {
    return GLibHolder<char>(g_file_get_uri(lectern_document_get_file(document))).get();
}

// A page that is smaller than the view begins at a negative place.
double fraction(int way, gint64 whole) {
    return way > 0 && whole > 0 ? static_cast<double>(way) / static_cast<double>(whole) : 0.0;
}

int wayOf(double fraction, gint64 whole) {
    return static_cast<int>(std::lround(fraction * static_cast<double>(whole)));
}

Place placeOf(LecternDocument* document) {
    const double zoom = lectern_document_get_zoom(document);
    return {.part = lectern_document_get_part(document),
            .zoom = zoom == lectern_document_get_fit_zoom(document) ? 0 : zoom,
            .x = fraction(lectern_document_get_x(document), lectern_document_get_document_width(document)),
            .y = fraction(lectern_document_get_y(document), lectern_document_get_document_height(document))};
}

} // namespace

Bookmark::Bookmark(Shell& shell, History& history)
    : mShell(shell), mHistory(history), mSignals(signalsOfDocument(shell)) {
    for (const char* signal : {"notify::x", "notify::y", "notify::zoom", "notify::part"}) {
        g_signal_group_connect_swapped(mSignals.get(), signal, G_CALLBACK(onSignal<&Bookmark::moved>), this);
    }
}

void Bookmark::restore(std::function<void()> onDone) {
    LecternDocument* document = mShell.document();
    const std::string uri = uriOf(document);
    mHistory.add(uri, g_get_real_time() / G_USEC_PER_SEC);
    mTarget = mHistory.placeOf(uri);
    mOnDone = std::move(onDone);
    mPending.giveUp();
    if (mTarget == Place{}) {
        finish(nullptr, nullptr);
    } else if (mTarget.part > 0 && mTarget.part < lectern_document_get_n_parts(document)) {
        lectern_document_go_to_part_async(document, mTarget.part, mPending.get(), asyncDone<&Bookmark::zoom>,
                                          this);
    } else {
        zoom(G_OBJECT(document), nullptr);
    }
}

// Each step continues if the one before has failed: the rest of the place is still good.
void Bookmark::zoom(GObject* source, GAsyncResult* /*result*/) {
    if (mTarget.zoom > 0) {
        constexpr int CENTRE = -1;
        lectern_document_zoom_to_async(LECTERN_DOCUMENT(source), mTarget.zoom, CENTRE, CENTRE, mPending.get(),
                                       asyncDone<&Bookmark::scroll>, this);
    } else {
        scroll(source, nullptr);
    }
}

void Bookmark::scroll(GObject* source, GAsyncResult* /*result*/) {
    LecternDocument* document = LECTERN_DOCUMENT(source);
    lectern_document_scroll_to_async(document,
                                     wayOf(mTarget.x, lectern_document_get_document_width(document)),
                                     wayOf(mTarget.y, lectern_document_get_document_height(document)),
                                     mPending.get(), asyncDone<&Bookmark::finish>, this);
}

void Bookmark::finish(GObject* /*source*/, GAsyncResult* /*result*/) {
    if (const auto onDone = std::exchange(mOnDone, nullptr)) {
        onDone();
    }
}

void Bookmark::moved() {
    mMoved = true;
    if (mTimer == 0) {
        mTimer = g_timeout_add_seconds(
            REST_SECONDS,
            [](void* self) -> gboolean {
                static_cast<Bookmark*>(self)->mTimer = 0;
                static_cast<Bookmark*>(self)->keep();
                return G_SOURCE_REMOVE;
            },
            this);
    }
}

void Bookmark::keep() {
    if (mTimer != 0) {
        g_source_remove(std::exchange(mTimer, 0));
    }
    LecternDocument* document = mShell.document();
    if (document != nullptr && !mOnDone && std::exchange(mMoved, false)) {
        mHistory.setPlace(uriOf(document), placeOf(document));
    }
}

} // namespace lectern::viewer
