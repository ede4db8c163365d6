// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/HitMarks.h"

#include <gtk/gtk.h>

#include <vector>

namespace lectern::viewer {

// A thin strip beside the scrollbar with the marks of hits. Contacts go through it.
class HitStrip {
public:
    HitStrip();
    ~HitStrip();
    HitStrip(const HitStrip&) = delete;
    HitStrip& operator=(const HitStrip&) = delete;

    GtkWidget* widget() const { return mArea; }
    void show(std::vector<HitMarks::Mark> marks);

private:
    static void draw(GtkDrawingArea* area, cairo_t* cairo, int width, int height, gpointer self);

    GtkWidget* mArea; // owned
    std::vector<HitMarks::Mark> mMarks;
};

} // namespace lectern::viewer
