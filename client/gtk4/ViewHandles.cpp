// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewHandles.h"

namespace lectern::gtk4 {

namespace {

// In pixels of the widget.
constexpr double RADIUS = 9;
constexpr double REACH = 24; // of a finger: 48 pixels are the usual smallest target

constexpr GdkRGBA BLUE{0.11f, 0.44f, 0.85f, 1};
constexpr GdkRGBA WHITE{1, 1, 1, 1};

void appendDisc(GtkSnapshot* snapshot, double x, double y, double radius, const GdkRGBA& colour) {
    graphene_rect_t square;
    graphene_rect_init(&square, static_cast<float>(x - radius), static_cast<float>(y - radius),
                       static_cast<float>(2 * radius), static_cast<float>(2 * radius));
    GskRoundedRect disc;
    gsk_rounded_rect_init_from_rect(&disc, &square, static_cast<float>(radius));
    gtk_snapshot_push_rounded_clip(snapshot, &disc);
    gtk_snapshot_append_color(snapshot, &colour, &square);
    gtk_snapshot_pop(snapshot);
}

Point middleLeft(const LecternRectangle& place) {
    return {static_cast<double>(place.x), place.y + place.height / 2.0};
}

Point middleRight(const LecternRectangle& place) {
    return {static_cast<double>(place.x + place.width), place.y + place.height / 2.0};
}

} // namespace

ViewHandles::ViewHandles(ViewContext& context, ViewSelection& selection)
    : mContext(context), mSelection(selection) {}

void ViewHandles::show(bool isShown) {
    mIsShown = isShown;
    gtk_widget_queue_draw(mContext.widget());
}

Point ViewHandles::start() const {
    const LecternRectangle& first = mSelection.rectangles().front();
    return {static_cast<double>(first.x), static_cast<double>(first.y + first.height)};
}

Point ViewHandles::end() const {
    const LecternRectangle& last = mSelection.rectangles().back();
    return {static_cast<double>(last.x + last.width), static_cast<double>(last.y + last.height)};
}

bool ViewHandles::grab(Point at) {
    if (!areShown()) {
        return false;
    }
    const PixelGrid grid = mContext.grid();
    const Point below{0, grid.toDevice(RADIUS)};
    const double toStart = distance(at, start() + below);
    const double toEnd = distance(at, end() + below);
    if (std::min(toStart, toEnd) > grid.toDevice(REACH)) {
        return false;
    }
    const Point first = middleLeft(mSelection.rectangles().front());
    const Point last = middleRight(mSelection.rectangles().back());
    const bool takesStart = toStart < toEnd;
    mGrip = (takesStart ? first : last) - at;
    const Point other = takesStart ? last : first;
    mSelection.beginReach({other, other});
    mIsDragged = true;
    return true;
}

void ViewHandles::extendFromWord() {
    if (!mSelection.rectangles().empty()) {
        mGrip = {};
        mSelection.beginReach(
            {middleLeft(mSelection.rectangles().front()), middleRight(mSelection.rectangles().back())});
        mIsDragged = true;
    }
}

void ViewHandles::drag(Point at) {
    if (mIsDragged) {
        mSelection.reachTo(at + mGrip);
    }
}

void ViewHandles::release() {
    mIsDragged = false;
}

void ViewHandles::snapshot(GtkSnapshot* snapshot, const PixelGrid& grid) const {
    if (!areShown()) {
        return;
    }
    for (const Point& foot : {start(), end()}) {
        const double x = grid.toWidget(foot.x);
        const double y = grid.toWidget(foot.y) + RADIUS;
        appendDisc(snapshot, x, y, RADIUS, WHITE);
        appendDisc(snapshot, x, y, RADIUS - 1.5, BLUE);
    }
}

} // namespace lectern::gtk4
