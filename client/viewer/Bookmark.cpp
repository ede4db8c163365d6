// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Bookmark.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lectern::viewer {

namespace {

constexpr guint REST_SECONDS = 2;

std::string uriOf(LecternDocument* document) {
    return GLibHolder<char>(g_file_get_uri(lectern_document_get_file(document))).get();
}

// What a place is measured by. A text has another height in each window, so its places are
// fractions. The height of a sheet grows as one scrolls, so its places are in inches.
struct Unit {
    double width;
    double height;
};

Unit unitOf(LecternDocument* document) {
    if (lectern_document_get_kind(document) == LECTERN_DOCUMENT_KIND_SPREADSHEET) {
        const double inch = lectern_document_get_dpi(document) * lectern_document_get_zoom(document);
        return {inch, inch};
    }
    return {static_cast<double>(lectern_document_get_document_width(document)),
            static_cast<double>(lectern_document_get_document_height(document))};
}

// A page that is smaller than the view begins at a negative place.
double inUnits(int way, double unit) {
    return way > 0 && unit > 0 ? way / unit : 0.0;
}

int inPixels(double place, double unit) {
    return static_cast<int>(std::lround(std::min(place * unit, static_cast<double>(G_MAXINT))));
}

Place placeOf(LecternDocument* document) {
    const double zoom = lectern_document_get_zoom(document);
    const Unit unit = unitOf(document);
    return {.part = lectern_document_get_part(document),
            .zoom = zoom == lectern_document_get_fit_zoom(document) ? 0 : zoom,
            .x = inUnits(lectern_document_get_x(document), unit.width),
            .y = inUnits(lectern_document_get_y(document), unit.height)};
}

// The last row of the document at which a view can begin.
gint64 reachOf(LecternDocument* document) {
    return lectern_document_get_document_height(document) - lectern_document_get_visible_height(document);
}

} // namespace

Bookmark::Bookmark(Shell& shell, History& history)
    : mShell(shell), mHistory(history), mSignals(signalsOfDocument(shell)) {
    for (const char* signal : {"notify::x", "notify::y", "notify::zoom", "notify::part"}) {
        g_signal_group_connect_swapped(mSignals.get(), signal, G_CALLBACK(onSignal<&Bookmark::moved>), this);
    }
    for (const char* signal : {"notify::document-height", "notify::visible-height"}) {
        g_signal_group_connect_swapped(mSignals.get(), signal, G_CALLBACK(onSignal<&Bookmark::reachFurther>),
                                       this);
    }
}

void Bookmark::restore(std::function<void()> onDone) {
    LecternDocument* document = mShell.document();
    const std::string uri = uriOf(document);
    mHistory.add(uri, g_get_real_time() / G_USEC_PER_SEC);
    mTarget = mHistory.placeOf(uri);
    mShort = false;
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
    const Unit unit = unitOf(document);
    const int wanted = inPixels(mTarget.y, unit.height);
    mReach = reachOf(document);
    mShort = wanted > mReach;
    lectern_document_scroll_to_async(document, inPixels(mTarget.x, unit.width), wanted, mPending.get(),
                                     asyncDone<&Bookmark::finish>, this);
}

// The bars around the view come when the document is open, so the view gets smaller and
// reaches further down than at first. What is known of a sheet grows, too.
void Bookmark::reachFurther() {
    LecternDocument* document = mShell.document();
    if (document != nullptr && mShort && reachOf(document) > mReach) {
        scroll(G_OBJECT(document), nullptr);
    }
}

void Bookmark::finish(GObject* /*source*/, GAsyncResult* /*result*/) {
    if (const auto onDone = std::exchange(mOnDone, nullptr)) {
        onDone();
    }
    reachFurther();
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
    mShort = false; // a reader who has moved on is not taken back
    LecternDocument* document = mShell.document();
    if (document != nullptr && !mOnDone && std::exchange(mMoved, false)) {
        mHistory.setPlace(uriOf(document), placeOf(document));
    }
}

} // namespace lectern::viewer
