// SPDX-License-Identifier: Apache-2.0
// The GObject face of the view: properties, signals, functions of C.
#include "client/gtk4/View.h"
#include "client/gtk4/include/lectern-gtk4/lectern-gtk4.h"

using lectern::gtk4::View;

struct _LecternView {
    GtkWidget parent;
    View* view;
    // Taken from C++ as soon as it has a class for them.
    GtkAdjustment* adjustments[2];
    GtkScrollablePolicy policies[2];
    double dpi;
    gboolean night;
    gboolean presenting;
};

G_DEFINE_FINAL_TYPE_WITH_CODE(LecternView, lectern_view, GTK_TYPE_WIDGET,
                              G_IMPLEMENT_INTERFACE(GTK_TYPE_SCROLLABLE, nullptr))

namespace {

enum Property {
    NO_PROPERTY,
    DOCUMENT,
    NIGHT,
    PRESENTING,
    DPI,
    HAS_SELECTION,
    SCALE,
    HADJUSTMENT,
    VADJUSTMENT,
    HSCROLL_POLICY,
    VSCROLL_POLICY,
};

enum Signal { LINK_ACTIVATED, FAILED, N_SIGNALS };
guint signals[N_SIGNALS];

void setProperty(GObject* object, guint id, const GValue* value, GParamSpec* pspec) {
    LecternView* self = LECTERN_VIEW(object);
    switch (id) {
    case DOCUMENT:
        lectern_view_set_document(self, LECTERN_DOCUMENT(g_value_get_object(value)));
        break;
    case NIGHT:
        lectern_view_set_night(self, g_value_get_boolean(value));
        break;
    case PRESENTING:
        lectern_view_set_presenting(self, g_value_get_boolean(value));
        break;
    case DPI:
        lectern_view_set_dpi(self, g_value_get_double(value));
        break;
    case HADJUSTMENT:
    case VADJUSTMENT:
        g_set_object(&self->adjustments[id - HADJUSTMENT], GTK_ADJUSTMENT(g_value_get_object(value)));
        break;
    case HSCROLL_POLICY:
    case VSCROLL_POLICY:
        self->policies[id - HSCROLL_POLICY] = static_cast<GtkScrollablePolicy>(g_value_get_enum(value));
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
    }
}

void getProperty(GObject* object, guint id, GValue* value, GParamSpec* pspec) {
    LecternView* self = LECTERN_VIEW(object);
    switch (id) {
    case DOCUMENT:
        g_value_set_object(value, self->view->document());
        break;
    case NIGHT:
        g_value_set_boolean(value, self->night);
        break;
    case PRESENTING:
        g_value_set_boolean(value, self->presenting);
        break;
    case DPI:
        g_value_set_double(value, self->dpi);
        break;
    case HAS_SELECTION:
        g_value_set_boolean(value, lectern_view_get_has_selection(self));
        break;
    case SCALE:
        g_value_set_double(value, lectern_view_get_scale(self));
        break;
    case HADJUSTMENT:
    case VADJUSTMENT:
        g_value_set_object(value, self->adjustments[id - HADJUSTMENT]);
        break;
    case HSCROLL_POLICY:
    case VSCROLL_POLICY:
        g_value_set_enum(value, self->policies[id - HSCROLL_POLICY]);
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
    }
}

void dispose(GObject* object) {
    LecternView* self = LECTERN_VIEW(object);
    self->view->setDocument(nullptr);
    g_clear_object(&self->adjustments[0]);
    g_clear_object(&self->adjustments[1]);
    G_OBJECT_CLASS(lectern_view_parent_class)->dispose(object);
}

void finalize(GObject* object) {
    delete LECTERN_VIEW(object)->view;
    G_OBJECT_CLASS(lectern_view_parent_class)->finalize(object);
}

constexpr GParamFlags READABLE = static_cast<GParamFlags>(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS);
constexpr GParamFlags WRITABLE =
    static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_EXPLICIT_NOTIFY | G_PARAM_STATIC_STRINGS);

void installProperties(GObjectClass* objects) {
    g_object_class_install_property(
        objects, DOCUMENT,
        g_param_spec_object("document", nullptr, nullptr, LECTERN_TYPE_DOCUMENT, WRITABLE));
    g_object_class_install_property(objects, NIGHT,
                                    g_param_spec_boolean("night", nullptr, nullptr, FALSE, WRITABLE));
    g_object_class_install_property(objects, PRESENTING,
                                    g_param_spec_boolean("presenting", nullptr, nullptr, FALSE, WRITABLE));
    g_object_class_install_property(objects, DPI,
                                    g_param_spec_double("dpi", nullptr, nullptr, 0, 1200, 0, WRITABLE));
    g_object_class_install_property(objects, HAS_SELECTION,
                                    g_param_spec_boolean("has-selection", nullptr, nullptr, FALSE, READABLE));
    g_object_class_install_property(objects, SCALE,
                                    g_param_spec_double("scale", nullptr, nullptr, 0, 100, 1, READABLE));
    g_object_class_override_property(objects, HADJUSTMENT, "hadjustment");
    g_object_class_override_property(objects, VADJUSTMENT, "vadjustment");
    g_object_class_override_property(objects, HSCROLL_POLICY, "hscroll-policy");
    g_object_class_override_property(objects, VSCROLL_POLICY, "vscroll-policy");
}

void installSignals(GObjectClass* objects) {
    const GType type = G_TYPE_FROM_CLASS(objects);
    signals[LINK_ACTIVATED] = g_signal_new("link-activated", type, G_SIGNAL_RUN_LAST, 0, nullptr, nullptr,
                                           nullptr, G_TYPE_NONE, 1, G_TYPE_STRING);
    signals[FAILED] = g_signal_new("failed", type, G_SIGNAL_RUN_LAST, 0, nullptr, nullptr, nullptr,
                                   G_TYPE_NONE, 1, G_TYPE_ERROR);
}

} // namespace

static void lectern_view_class_init(LecternViewClass* views) {
    GObjectClass* objects = G_OBJECT_CLASS(views);
    objects->set_property = setProperty;
    objects->get_property = getProperty;
    objects->dispose = dispose;
    objects->finalize = finalize;
    installProperties(objects);
    installSignals(objects);
    gtk_widget_class_set_css_name(GTK_WIDGET_CLASS(views), "lecternview");
    gtk_widget_class_set_accessible_role(GTK_WIDGET_CLASS(views), GTK_ACCESSIBLE_ROLE_DOCUMENT);
}

static void lectern_view_init(LecternView* self) {
    self->view = new View(GTK_WIDGET(self));
}

GtkWidget* lectern_view_new(void) {
    return GTK_WIDGET(g_object_new(LECTERN_TYPE_VIEW, nullptr));
}

LecternDocument* lectern_view_get_document(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), nullptr);
    return self->view->document();
}

void lectern_view_set_document(LecternView* self, LecternDocument* document) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    if (self->view->setDocument(document)) {
        g_object_notify(G_OBJECT(self), "document");
    }
}

gboolean lectern_view_get_night(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), FALSE);
    return self->night;
}

void lectern_view_set_night(LecternView* self, gboolean night) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    if (self->night != (night != FALSE)) {
        self->night = night != FALSE;
        gtk_widget_queue_draw(GTK_WIDGET(self));
        g_object_notify(G_OBJECT(self), "night");
    }
}

gboolean lectern_view_get_presenting(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), FALSE);
    return self->presenting;
}

void lectern_view_set_presenting(LecternView* self, gboolean presenting) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    if (self->presenting != (presenting != FALSE)) {
        self->presenting = presenting != FALSE;
        g_object_notify(G_OBJECT(self), "presenting");
    }
}

double lectern_view_get_dpi(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), 0);
    return self->dpi;
}

void lectern_view_set_dpi(LecternView* self, double dpi) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->dpi = dpi;
    g_object_notify(G_OBJECT(self), "dpi");
}

gboolean lectern_view_get_has_selection(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), FALSE);
    return FALSE;
}

void lectern_view_copy(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
}

void lectern_view_select_all(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
}

void lectern_view_clear_selection(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
}

void lectern_view_zoom_in(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
}

void lectern_view_zoom_out(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
}

void lectern_view_zoom_to_fit(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
}

void lectern_view_zoom_to_width(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
}

double lectern_view_get_scale(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), 1);
    return gtk_widget_get_scale_factor(GTK_WIDGET(self));
}
