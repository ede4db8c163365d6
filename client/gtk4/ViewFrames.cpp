// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewFrames.h"

#include "client/gtk4/FrameBands.h"

namespace lectern::gtk4 {

namespace {

constexpr size_t PIXEL = 4; // bytes

GLibHolder<GdkTexture> textureOf(GBytes* frame, int width, int top, int rows) {
    const size_t stride = static_cast<size_t>(width) * PIXEL;
    const auto* pixels = static_cast<const char*>(g_bytes_get_data(frame, nullptr));
    GBytes* copy =
        g_bytes_new(pixels + static_cast<size_t>(top) * stride, static_cast<size_t>(rows) * stride);
    // A word of 0xAARRGGBB is GDK_MEMORY_DEFAULT on every machine.
    GLibHolder<GdkTexture> texture(gdk_memory_texture_new(width, rows, GDK_MEMORY_DEFAULT, copy, stride));
    g_bytes_unref(copy);
    return texture;
}

} // namespace

void ViewFrames::update(GBytes* frame, Size size, const LecternRectangle& damage) {
    const size_t needed = static_cast<size_t>(size.width) * static_cast<size_t>(size.height) * PIXEL;
    if (g_bytes_get_size(frame) < needed) {
        return;
    }
    const FrameBands bands(size.height);
    const bool isNew = size != mSize;
    const FrameBands::Range range =
        isNew ? FrameBands::Range{0, bands.count()} : bands.touchedBy(damage.y, damage.height);
    mSize = size;
    mBands.resize(static_cast<size_t>(bands.count()));
    for (int band = range.first; band < range.last; ++band) {
        mBands[static_cast<size_t>(band)] = textureOf(frame, size.width, bands.top(band), bands.rows(band));
    }
}

void ViewFrames::clear() {
    mSize = {};
    mBands.clear();
}

void ViewFrames::snapshot(GtkSnapshot* snapshot, const PixelGrid& grid) const {
    const FrameBands bands(mSize.height);
    const double width = grid.toWidget(mSize.width);
    for (int band = 0; band < bands.count(); ++band) {
        graphene_rect_t place;
        graphene_rect_init(&place, 0, static_cast<float>(grid.toWidget(bands.top(band))),
                           static_cast<float>(width), static_cast<float>(grid.toWidget(bands.rows(band))));
        gtk_snapshot_append_texture(snapshot, mBands[static_cast<size_t>(band)].get(), &place);
    }
}

} // namespace lectern::gtk4
