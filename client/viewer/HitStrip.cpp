// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/HitStrip.h"

#include <utility>

namespace lectern::viewer {

namespace {

constexpr int WIDTH = 8;          // pixels, about as wide as a scrollbar at rest
constexpr double THICKNESS = 3.0; // of a mark
constexpr double OTHERS = 0.5;    // opacity of the marks of hits that are not the current one

} // namespace

HitStrip::HitStrip()
    : mArea(GTK_WIDGET(g_object_ref_sink(g_object_new(GTK_TYPE_DRAWING_AREA, "accessible-role",
                                                      GTK_ACCESSIBLE_ROLE_PRESENTATION, nullptr)))) {
    gtk_widget_set_halign(mArea, GTK_ALIGN_END);
    gtk_widget_set_size_request(mArea, WIDTH, -1);
    gtk_widget_set_can_target(mArea, FALSE);
    gtk_widget_set_visible(mArea, FALSE);
    gtk_widget_add_css_class(mArea, "accent");
    gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(mArea), draw, this, nullptr);
}

HitStrip::~HitStrip() {
    gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(mArea), nullptr, nullptr, nullptr);
    g_object_unref(mArea);
}

void HitStrip::show(std::vector<HitMarks::Mark> marks) {
    mMarks = std::move(marks);
    gtk_widget_set_visible(mArea, mMarks.empty() ? FALSE : TRUE);
    gtk_widget_queue_draw(mArea);
}

void HitStrip::draw(GtkDrawingArea* area, cairo_t* cairo, int width, int height, gpointer self) {
    GdkRGBA colour;
    gtk_style_context_get_color(gtk_widget_get_style_context(GTK_WIDGET(area)), &colour);
    for (const auto& mark : static_cast<HitStrip*>(self)->mMarks) {
        cairo_set_source_rgba(cairo, colour.red, colour.green, colour.blue, mark.isCurrent ? 1.0 : OTHERS);
        cairo_rectangle(cairo, 1, mark.place * (height - THICKNESS), width - 2, THICKNESS);
        cairo_fill(cairo);
    }
}

} // namespace lectern::viewer
