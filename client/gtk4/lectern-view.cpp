// SPDX-License-Identifier: Apache-2.0
// The class of the view: its properties, signals and actions.
#include "client/gtk4/ViewObject.h"

using lectern::gtk4::View;
using lectern::gtk4::ViewEvents;

/**
 * LecternView:
 *
 * A widget that shows a document and takes its input.
 *
 * Put it into a [class@Gtk.ScrolledWindow] for scrollbars. It gives its document the
 * size of the widget and paints it, at most once in a frame of the screen and never
 * at rest. When the service stops, the last picture stays, and the view opens the
 * document again by itself.
 *
 * Fingers drag, flick, pinch and tap the document; a finger that rests selects a word,
 * which two handles extend. A mouse selects what it drags over, and wheels, trackpads
 * and keys scroll, turn slides and zoom.
 *
 * The view has the actions `clipboard.copy`, `selection.select-all`, `link.open` and
 * `menu.popup`, and the CSS node `lecternview` with the style class `view`.
 *
 * A view belongs to the thread of GTK.
 */
G_DEFINE_FINAL_TYPE_WITH_CODE(LecternView, lectern_view, GTK_TYPE_WIDGET,
                              G_IMPLEMENT_INTERFACE(GTK_TYPE_SCROLLABLE, nullptr))

namespace {

// What a window gets that leaves its size to the view: half of a small telephone.
constexpr int NATURAL_SIDE = 360;

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

void notify(LecternView* self, const char* property) {
    g_object_notify(G_OBJECT(self), property);
}

void setPolicy(LecternView* self, guint id, GtkScrollablePolicy policy) {
    GtkScrollablePolicy& held = self->policies[id - HSCROLL_POLICY];
    if (held != policy) {
        held = policy;
        gtk_widget_queue_resize(GTK_WIDGET(self));
        notify(self, id == HSCROLL_POLICY ? "hscroll-policy" : "vscroll-policy");
    }
}

void setProperty(GObject* object, guint id, const GValue* value, GParamSpec* pspec) {
    LecternView* self = LECTERN_VIEW(object);
    switch (id) {
    case DOCUMENT:
        lectern_view_set_document(self, static_cast<LecternDocument*>(g_value_get_object(value)));
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
        self->view->scrolling().setAdjustment(id == HADJUSTMENT ? GTK_ORIENTATION_HORIZONTAL
                                                                : GTK_ORIENTATION_VERTICAL,
                                              static_cast<GtkAdjustment*>(g_value_get_object(value)));
        g_object_notify_by_pspec(object, pspec);
        break;
    case HSCROLL_POLICY:
    case VSCROLL_POLICY:
        setPolicy(self, id, static_cast<GtkScrollablePolicy>(g_value_get_enum(value)));
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
    }
}

void getProperty(GObject* object, guint id, GValue* value, GParamSpec* pspec) {
    LecternView* self = LECTERN_VIEW(object);
    switch (id) {
    case DOCUMENT:
        g_value_set_object(value, lectern_view_get_document(self));
        break;
    case NIGHT:
        g_value_set_boolean(value, lectern_view_get_night(self));
        break;
    case PRESENTING:
        g_value_set_boolean(value, lectern_view_get_presenting(self));
        break;
    case DPI:
        g_value_set_double(value, lectern_view_get_dpi(self));
        break;
    case HAS_SELECTION:
        g_value_set_boolean(value, lectern_view_get_has_selection(self));
        break;
    case SCALE:
        g_value_set_double(value, lectern_view_get_scale(self));
        break;
    case HADJUSTMENT:
        g_value_set_object(value, self->view->scrolling().adjustment(GTK_ORIENTATION_HORIZONTAL));
        break;
    case VADJUSTMENT:
        g_value_set_object(value, self->view->scrolling().adjustment(GTK_ORIENTATION_VERTICAL));
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
    LECTERN_VIEW(object)->view->dispose();
    G_OBJECT_CLASS(lectern_view_parent_class)->dispose(object);
}

void finalize(GObject* object) {
    delete LECTERN_VIEW(object)->view;
    G_OBJECT_CLASS(lectern_view_parent_class)->finalize(object);
}

void measure(GtkWidget* widget, GtkOrientation orientation, int /*side*/, int* minimum, int* natural,
             int* /*minimumBaseline*/, int* /*naturalBaseline*/) {
    const GtkScrollablePolicy policy =
        LECTERN_VIEW(widget)->policies[orientation == GTK_ORIENTATION_HORIZONTAL ? 0 : 1];
    *minimum = policy == GTK_SCROLL_NATURAL ? NATURAL_SIDE : 0;
    *natural = NATURAL_SIDE;
}

void allocate(GtkWidget* widget, int width, int height, int /*baseline*/) {
    LECTERN_VIEW(widget)->view->allocate(width, height);
}

void snapshot(GtkWidget* widget, GtkSnapshot* snapshot) {
    LECTERN_VIEW(widget)->view->snapshot(snapshot);
    GTK_WIDGET_CLASS(lectern_view_parent_class)->snapshot(widget, snapshot);
}

void map(GtkWidget* widget) {
    GTK_WIDGET_CLASS(lectern_view_parent_class)->map(widget);
    LECTERN_VIEW(widget)->view->show(true);
}

void unmap(GtkWidget* widget) {
    LECTERN_VIEW(widget)->view->show(false);
    GTK_WIDGET_CLASS(lectern_view_parent_class)->unmap(widget);
}

// The service makes the glides; those of the scrolled window would take the fingers.
void onParent(LecternView* self) {
    GtkWidget* parent = gtk_widget_get_parent(GTK_WIDGET(self));
    if (GTK_IS_SCROLLED_WINDOW(parent)) {
        gtk_scrolled_window_set_kinetic_scrolling(GTK_SCROLLED_WINDOW(parent), FALSE);
    }
}

void onScaleFactor(LecternView* self) {
    self->view->screenChanged();
    notify(self, "scale");
}

void onAction(GtkWidget* widget, const char* action, GVariant* /*parameter*/) {
    LecternView* self = LECTERN_VIEW(widget);
    if (g_str_equal(action, "clipboard.copy") != FALSE) {
        lectern_view_copy(self);
    } else if (g_str_equal(action, "selection.select-all") != FALSE) {
        lectern_view_select_all(self);
    } else if (g_str_equal(action, "link.open") != FALSE) {
        self->view->openSelectedLink();
    } else {
        self->view->popUpMenu();
    }
}

gboolean onEscape(GtkWidget* widget, GVariant* /*arguments*/, gpointer /*data*/) {
    LecternView* self = LECTERN_VIEW(widget);
    const bool had = self->view->hasSelection();
    lectern_view_clear_selection(self);
    return had;
}

void installActions(GtkWidgetClass* widgets) {
    for (const char* action : {"clipboard.copy", "selection.select-all", "link.open", "menu.popup"}) {
        gtk_widget_class_install_action(widgets, action, nullptr, onAction);
    }
    gtk_widget_class_add_binding_action(widgets, GDK_KEY_Insert, GDK_CONTROL_MASK, "clipboard.copy", nullptr);
    gtk_widget_class_add_binding_action(widgets, GDK_KEY_c, GDK_CONTROL_MASK, "clipboard.copy", nullptr);
    gtk_widget_class_add_binding_action(widgets, GDK_KEY_a, GDK_CONTROL_MASK, "selection.select-all",
                                        nullptr);
    gtk_widget_class_add_binding_action(widgets, GDK_KEY_Menu, GdkModifierType{}, "menu.popup", nullptr);
    gtk_widget_class_add_binding_action(widgets, GDK_KEY_F10, GDK_SHIFT_MASK, "menu.popup", nullptr);
    gtk_widget_class_add_binding(widgets, GDK_KEY_Escape, GdkModifierType{}, onEscape, nullptr);
}

void installWidget(GtkWidgetClass* widgets) {
    widgets->measure = measure;
    widgets->size_allocate = allocate;
    widgets->snapshot = snapshot;
    widgets->map = map;
    widgets->unmap = unmap;
    gtk_widget_class_set_css_name(widgets, "lecternview");
    gtk_widget_class_set_accessible_role(widgets, GTK_ACCESSIBLE_ROLE_DOCUMENT);
    installActions(widgets);
}

constexpr GParamFlags READABLE = static_cast<GParamFlags>(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS);
constexpr GParamFlags WRITABLE =
    static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_EXPLICIT_NOTIFY | G_PARAM_STATIC_STRINGS);

void installProperties(GObjectClass* objects) {
    /**
     * LecternView:document:
     *
     * The document, open already or not yet. One that is not open yet gets the size of
     * the view and the dots per inch of the screen, so that it opens at the right size.
     */
    g_object_class_install_property(
        objects, DOCUMENT,
        g_param_spec_object("document", nullptr, nullptr, LECTERN_TYPE_DOCUMENT, WRITABLE));
    /**
     * LecternView:night:
     *
     * Light letters on a dark page: the lightness of the picture is inverted, and its
     * hues stay.
     */
    g_object_class_install_property(objects, NIGHT,
                                    g_param_spec_boolean("night", nullptr, nullptr, FALSE, WRITABLE));
    /**
     * LecternView:presenting:
     *
     * Nothing is selected and there is no context menu; a tap on a free place and all
     * arrow keys turn slides.
     */
    g_object_class_install_property(objects, PRESENTING,
                                    g_param_spec_boolean("presenting", nullptr, nullptr, FALSE, WRITABLE));
    /**
     * LecternView:dpi:
     *
     * Device pixels for one inch of the screen, 36 to 1200, for documents that are opened
     * later; 0 for those of the monitor.
     */
    g_object_class_install_property(objects, DPI,
                                    g_param_spec_double("dpi", nullptr, nullptr, 0, 1200, 0, WRITABLE));
    /**
     * LecternView:has-selection:
     *
     * Whether there is something to copy.
     */
    g_object_class_install_property(objects, HAS_SELECTION,
                                    g_param_spec_boolean("has-selection", nullptr, nullptr, FALSE, READABLE));
    /**
     * LecternView:scale:
     *
     * Device pixels of the picture for one pixel of the widget, such as 2.0.
     */
    g_object_class_install_property(objects, SCALE,
                                    g_param_spec_double("scale", nullptr, nullptr, 0, 100, 1, READABLE));
    g_object_class_override_property(objects, HADJUSTMENT, "hadjustment");
    g_object_class_override_property(objects, VADJUSTMENT, "vadjustment");
    g_object_class_override_property(objects, HSCROLL_POLICY, "hscroll-policy");
    g_object_class_override_property(objects, VSCROLL_POLICY, "vscroll-policy");
}

void installSignals(GObjectClass* objects) {
    const GType type = G_TYPE_FROM_CLASS(objects);
    /**
     * LecternView::link-activated:
     * @self: the view
     * @uri: its address
     *
     * The user has tapped a link that leads out of the document.
     */
    signals[LINK_ACTIVATED] = g_signal_new("link-activated", type, G_SIGNAL_RUN_LAST, 0, nullptr, nullptr,
                                           nullptr, G_TYPE_NONE, 1, G_TYPE_STRING);
    /**
     * LecternView::failed:
     * @self: the view
     * @error: why
     *
     * The service has lost the document, and opening it again has failed several times.
     * The last picture stays. [method@Lectern.Document.reopen_async] may try once more.
     */
    signals[FAILED] = g_signal_new("failed", type, G_SIGNAL_RUN_LAST, 0, nullptr, nullptr, nullptr,
                                   G_TYPE_NONE, 1, G_TYPE_ERROR);
}

ViewEvents eventsOf(LecternView* self) {
    return {[self](const char* uri) { g_signal_emit(self, signals[LINK_ACTIVATED], 0, uri); },
            [self](const GError* error) { g_signal_emit(self, signals[FAILED], 0, error); },
            [self] { notify(self, "has-selection"); }};
}

} // namespace

static void lectern_view_class_init(LecternViewClass* views) {
    GObjectClass* objects = G_OBJECT_CLASS(views);
    objects->set_property = setProperty;
    objects->get_property = getProperty;
    objects->dispose = dispose;
    objects->finalize = finalize;
    installWidget(GTK_WIDGET_CLASS(views));
    installProperties(objects);
    installSignals(objects);
}

static void lectern_view_init(LecternView* self) {
    GtkWidget* widget = GTK_WIDGET(self);
    gtk_widget_set_focusable(widget, TRUE);
    gtk_widget_set_overflow(widget, GTK_OVERFLOW_HIDDEN);
    gtk_widget_add_css_class(widget, "view");
    self->view = new View(widget, eventsOf(self));
    self->view->scrolling().setAdjustment(GTK_ORIENTATION_HORIZONTAL, nullptr);
    self->view->scrolling().setAdjustment(GTK_ORIENTATION_VERTICAL, nullptr);
    g_signal_connect(self, "notify::parent", G_CALLBACK(onParent), nullptr);
    g_signal_connect(self, "notify::scale-factor", G_CALLBACK(onScaleFactor), nullptr);
}
