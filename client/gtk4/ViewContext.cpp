// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewContext.h"

namespace lectern::gtk4 {

namespace {

constexpr double USUAL_DPI = 96;     // of a pixel of GTK without further knowledge
constexpr double SMALLEST_DPI = 50;  // below and above these a monitor's
constexpr double LARGEST_DPI = 1000; // millimetres are not true
constexpr double MILLIMETRES = 25.4; // of an inch

GdkMonitor* monitorOf(GtkWidget* widget) {
    GtkNative* native = gtk_widget_get_native(widget);
    GdkSurface* surface = native == nullptr ? nullptr : gtk_native_get_surface(native);
    return surface == nullptr ? nullptr
                              : gdk_display_get_monitor_at_surface(gdk_surface_get_display(surface), surface);
}

// In pixels of GTK; 0 if it is not known.
double dpiOf(GdkMonitor* monitor) {
    const int width = gdk_monitor_get_width_mm(monitor);
    GdkRectangle place;
    gdk_monitor_get_geometry(monitor, &place);
    return width > 0 ? place.width * MILLIMETRES / width : 0;
}

} // namespace

ViewContext::ViewContext(GtkWidget* widget)
    : mWidget(widget), mSignals(g_signal_group_new(LECTERN_TYPE_DOCUMENT)) {}

void ViewContext::setDocument(LecternDocument* document) {
    mDocument.reset(document == nullptr ? nullptr : LECTERN_DOCUMENT(g_object_ref(document)));
    g_signal_group_set_target(mSignals.get(), document);
}

LecternDocument* ViewContext::openDocument() const {
    const bool isOpen = mDocument && lectern_document_get_opened(mDocument.get()) != FALSE &&
                        lectern_document_get_gone(mDocument.get()) == FALSE;
    return isOpen ? mDocument.get() : nullptr;
}

bool ViewContext::isOf(LecternDocumentKind kind) const {
    return mDocument && lectern_document_get_kind(mDocument.get()) == kind;
}

void ViewContext::onDocument(const char* signal, GCallback handler, void* self) {
    g_signal_group_connect_swapped(mSignals.get(), signal, handler, self);
}

PixelGrid ViewContext::grid() const {
#if GTK_CHECK_VERSION(4, 12, 0)
    GtkNative* native = gtk_widget_get_native(mWidget);
    GdkSurface* surface = native == nullptr ? nullptr : gtk_native_get_surface(native);
    if (surface != nullptr) {
        return PixelGrid(gdk_surface_get_scale(surface));
    }
#endif
    return PixelGrid(gtk_widget_get_scale_factor(mWidget));
}

double ViewContext::dpi() const {
    if (mDpi > 0) {
        return mDpi;
    }
    const double scale = grid().scale();
    GdkMonitor* monitor = monitorOf(mWidget);
    const double dpi = monitor == nullptr ? 0 : dpiOf(monitor) * scale;
    return dpi >= SMALLEST_DPI && dpi <= LARGEST_DPI ? dpi : USUAL_DPI * scale;
}

} // namespace lectern::gtk4
