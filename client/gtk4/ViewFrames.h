// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "client/gtk4/Geometry.h"

#include <gtk/gtk.h>
#include <lectern-glib/lectern-glib.h>

#include <vector>

namespace lectern::gtk4 {

// The picture as textures of bands. Bands in which nothing has changed keep theirs, so
// that GTK draws and uploads only what is new.
class ViewFrames {
public:
    // Takes over what differs from the picture before.
    // frame: rows of 0xAARRGGBB, size.width * size.height * 4 bytes or more.
    void update(GBytes* frame, Size size, const LecternRectangle& damage);
    void clear();

    bool isEmpty() const { return mBands.empty(); }
    Size size() const { return mSize; }
    // Draws the picture from the point 0, 0, which must be on a device pixel.
    void snapshot(GtkSnapshot* snapshot, const PixelGrid& grid) const;

private:
    Size mSize;
    std::vector<GLibHolder<GdkTexture>> mBands;
};

} // namespace lectern::gtk4
