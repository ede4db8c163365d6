// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/View.h"

#include "client/gtk4/LinkText.h"
#include "client/gtk4/NightColours.h"

#include <utility>

namespace lectern::gtk4 {

namespace {

// Where a widget begins on its window, in pixels of GTK.
Point placeOnSurface(GtkWidget* widget) {
    GtkNative* native = gtk_widget_get_native(widget);
    const graphene_point_t origin{0, 0};
    graphene_point_t place;
    if (native == nullptr || !gtk_widget_compute_point(widget, GTK_WIDGET(native), &origin, &place)) {
        return {};
    }
    Point shift;
    gtk_native_get_surface_transform(native, &shift.x, &shift.y);
    return shift + Point{place.x, place.y};
}

// The part of a picture that the document takes: all of it, unless a slide is smaller.
graphene_rect_t pageOf(const ViewContext& context, Size picture, const PixelGrid& grid) {
    double width = picture.width;
    double height = picture.height;
    if (context.isOf(LECTERN_DOCUMENT_KIND_PRESENTATION)) {
        LecternDocument* document = context.document();
        width = std::min(width, static_cast<double>(lectern_document_get_document_width(document)));
        height = std::min(height, static_cast<double>(lectern_document_get_document_height(document)));
    }
    graphene_rect_t page;
    graphene_rect_init(&page, static_cast<float>(grid.toWidget(std::floor((picture.width - width) / 2))),
                       static_cast<float>(grid.toWidget(std::floor((picture.height - height) / 2))),
                       static_cast<float>(grid.toWidget(width)), static_cast<float>(grid.toWidget(height)));
    return page;
}

} // namespace

View::View(GtkWidget* widget, ViewEvents events)
    : mContext(widget), mEvents(std::move(events)), mPainting(mContext, [this] { pictureArrived(); }),
      mSizing(mContext), mScrolling(mContext, mPainting), mZoom(mContext),
      mMoves(mContext, mScrolling, mZoom), mGive(mContext),
      mSelection(mContext, [this] { selectionChanged(); }), mHandles(mContext, mSelection),
      mMenu(mContext, mSelection), mInput(mContext, mSelection, mHandles, mMenu),
      mAccessible(mContext, mSelection), mRecovery(mContext, mEvents.onFailure) {
    mContext.onDocument("notify::moving", G_CALLBACK(onSignal<&View::motionChanged>), this);
    mContext.onDocument("click-unused", G_CALLBACK(onSignal<&View::clickUnused>), this);
    mContext.onDocument("link-tapped", G_CALLBACK(onSignal<&View::linkTapped>), this);
}

bool View::setDocument(LecternDocument* document) {
    if (document == mContext.document()) {
        return false;
    }
    mPending.giveUp();
    mContext.setDocument(document);
    mSizing.reset();
    mScrolling.reset();
    mZoom.reset();
    mMoves.reset();
    mGive.reset();
    mHandles.show(false);
    mSelection.reset();
    mMenu.close();
    mInput.reset();
    mAccessible.reset();
    mRecovery.reset();
    mSizing.prepare();
    mSizing.fit();
    mPainting.reset();
    return true;
}

void View::dispose() {
    setDocument(nullptr);
    mMenu.dispose();
    mAccessible.dispose();
}

void View::setNight(bool isNight) {
    mIsNight = isNight;
    gtk_widget_queue_draw(mContext.widget());
}

void View::selectAll() {
    mHandles.show(false);
    mSelection.select(LECTERN_SELECT_ALL, {});
}

void View::clearSelection() {
    mMenu.close();
    mHandles.show(false);
    mSelection.clear();
}

void View::openSelectedLink() {
    if (const std::string link = linkIn(mSelection.text()); !link.empty()) {
        mEvents.onLink(link.c_str());
    }
}

void View::allocate(int width, int height) {
    mSizing.fit();
    mScrolling.sync();
    mAccessible.allocate(width, height);
    mMenu.present();
}

void View::screenChanged() {
    mInput.reset();
    mSizing.fit();
    mScrolling.sync();
    gtk_widget_queue_draw(mContext.widget());
}

void View::pictureArrived() {
    LecternDocument* document = mContext.document();
    const Point place{static_cast<double>(lectern_document_get_x(document)),
                      static_cast<double>(lectern_document_get_y(document))};
    const double zoom = lectern_document_get_zoom(document);
    const Point way = std::exchange(mPlace, place) - place;
    if (std::exchange(mZoomShown, zoom) == zoom) {
        mSelection.move(way);
    } else {
        selectionMoved();
    }
    mScrolling.pictureArrived();
    mAccessible.noteChange();
}

// Whatever moved the document, its selection may have come into view or left it.
void View::motionChanged() {
    if (lectern_document_get_moving(mContext.document()) == FALSE) {
        selectionMoved();
    }
}

void View::selectionMoved() {
    if (!mSelection.text().empty()) {
        mSelection.refresh();
    }
}

void View::selectionChanged() {
    mAccessible.noteSelection();
    gtk_widget_queue_draw(mContext.widget());
    if (const bool has = mSelection.exists(); std::exchange(mHadSelection, has) != has) {
        mEvents.onSelectionChange();
    }
}

// While presenting, a tap on nothing else turns to the next slide.
void View::clickUnused() {
    if (mContext.isPresenting()) {
        mMoves.turn(1);
    }
}

void View::linkTapped() {
    lectern_document_get_link_async(mContext.document(), mPending.get(), asyncDone<&View::linkRead>, this);
}

void View::linkRead(GObject* source, GAsyncResult* result) {
    GLibHolder<char> link(lectern_document_get_link_finish(LECTERN_DOCUMENT(source), result, nullptr));
    if (link && *link != '\0') {
        mEvents.onLink(link.get());
    }
}

// What surrounds a slide is dark already.
void View::snapshotNight(GtkSnapshot* snapshot, const PixelGrid& grid) const {
    const graphene_rect_t page = pageOf(mContext, mPainting.frames().size(), grid);
    const ColourChange night = nightColours();
    gtk_snapshot_push_clip(snapshot, &page);
    gtk_snapshot_push_color_matrix(snapshot, &night.matrix, &night.offset);
    mPainting.frames().snapshot(snapshot, grid);
    gtk_snapshot_pop(snapshot);
    gtk_snapshot_pop(snapshot);
}

void View::snapshot(GtkSnapshot* snapshot) {
    const PixelGrid grid = mContext.grid();
    const Point place = placeOnSurface(mContext.widget());
    const Point give = mGive.offset();
    graphene_point_t origin;
    graphene_point_init(&origin, static_cast<float>(grid.toPixelEdge(place.x) + grid.toWidget(give.x)),
                        static_cast<float>(grid.toPixelEdge(place.y) + grid.toWidget(give.y)));
    gtk_snapshot_save(snapshot);
    gtk_snapshot_translate(snapshot, &origin);
    mPainting.frames().snapshot(snapshot, grid);
    if (mIsNight) {
        snapshotNight(snapshot, grid);
    }
    mHandles.snapshot(snapshot, grid);
    gtk_snapshot_restore(snapshot);
}

} // namespace lectern::gtk4
