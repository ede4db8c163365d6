// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Presenter.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace lectern::viewer {

namespace {

constexpr int ALL = std::numeric_limits<int>::max(); // slides
constexpr guint POINTER_SECONDS = 2;                 // from the last motion until the pointer is hidden

GtkApplication* application() {
    return GTK_APPLICATION(g_application_get_default());
}

// A monitor that is not the given one, or null.
GLibHolder<GdkMonitor> otherMonitor(GdkMonitor* monitor) {
    GListModel* monitors = gdk_display_get_monitors(gdk_monitor_get_display(monitor));
    for (guint i = 0; i < g_list_model_get_n_items(monitors); ++i) {
        GLibHolder<GdkMonitor> found(GDK_MONITOR(g_list_model_get_item(monitors, i)));
        if (found.get() != monitor) {
            return found;
        }
    }
    return {};
}

} // namespace

Presenter::Presenter(Shell& shell, FullScreen& fullScreen)
    : Part(shell), mFullScreen(fullScreen),
      mPresent(addSwitch(shell.actions(), "present", false, G_CALLBACK(onSignal<&Presenter::toggle>), this)) {
    GtkWidget* window = GTK_WIDGET(shell.window());
    gtk_widget_add_controller(window, newKeys());
    GtkEventController* motion = gtk_event_controller_motion_new();
    g_signal_connect(motion, "motion", G_CALLBACK(onMotion), this);
    gtk_widget_add_controller(window, motion);
    g_signal_connect_swapped(window, "notify::fullscreened", G_CALLBACK(onSignal<&Presenter::follow>), this);
    show(document());
}

// The window and its view may be gone.
Presenter::~Presenter() {
    g_clear_handle_id(&mPointerTimer, g_source_remove);
    letIdle();
}

// Without a manager of the desktop session there is nothing to end.
void Presenter::letIdle() {
    if (mInhibition != 0) {
        gtk_application_uninhibit(application(), std::exchange(mInhibition, 0));
    }
}

void Presenter::show(LecternDocument* document) {
    if (lectern_view_get_document(shell().view()) == nullptr) { // and not only until it is opened again
        stop();
    }
    g_simple_action_set_enabled(mPresent, document != nullptr && lectern_document_get_kind(document) ==
                                                                     LECTERN_DOCUMENT_KIND_PRESENTATION);
}

void Presenter::toggle() {
    mPresenting ? stop() : start();
}

void Presenter::start() {
    mPresenting = true;
    setOn(mPresent, true);
    GtkWindow* window = shell().window();
    GdkMonitor* own = gdk_display_get_monitor_at_surface(gtk_widget_get_display(GTK_WIDGET(window)),
                                                         gtk_native_get_surface(GTK_NATIVE(window)));
    mSlidesMonitor = otherMonitor(own);
    mWasFull = gtk_window_is_fullscreen(window) != FALSE;
    mFullScreen.setHeaderComesBack(false);
    mFullScreen.enter(mSlidesMonitor.get());
    lectern_view_set_presenting(shell().view(), TRUE);
    lectern_view_zoom_to_fit(shell().view());
    gtk_widget_grab_focus(GTK_WIDGET(shell().view()));
    mInhibition =
        gtk_application_inhibit(application(), window, GTK_APPLICATION_INHIBIT_IDLE, _("Presenting"));
    if (mSlidesMonitor != nullptr) {
        openConsole(own);
    }
    showPointer();
}

void Presenter::stop() {
    if (!std::exchange(mPresenting, false)) {
        return;
    }
    GtkWindow* window = shell().window();
    g_clear_handle_id(&mPointerTimer, g_source_remove);
    gtk_widget_set_cursor(GTK_WIDGET(window), nullptr);
    mConsole.reset();
    letIdle();
    lectern_view_set_presenting(shell().view(), FALSE);
    mFullScreen.setHeaderComesBack(true);
    if (!mWasFull) {
        mFullScreen.leave();
    }
    setOn(mPresent, false);
}

void Presenter::follow() {
    if (mPresenting && gtk_window_is_fullscreen(shell().window()) == FALSE) {
        mWasFull = false;
        stop();
    }
}

void Presenter::openConsole(GdkMonitor* own) {
    const GLibHolder<GSimpleActionGroup> turns(g_simple_action_group_new());
    GActionMap* map = G_ACTION_MAP(turns.get());
    viewer::addAction(map, "previous", G_CALLBACK(onSignal<&Presenter::previous>), this);
    viewer::addAction(map, "next", G_CALLBACK(onSignal<&Presenter::next>), this);
    viewer::addAction(map, "swap", G_CALLBACK(onSignal<&Presenter::swapMonitors>), this);
    viewer::addAction(map, "stop", G_CALLBACK(onSignal<&Presenter::stop>), this);
    mConsole = std::make_unique<PresenterConsole>(document(), G_ACTION_GROUP(turns.get()));
    mConsoleMonitor.reset(GDK_MONITOR(g_object_ref(own)));
    gtk_widget_add_controller(GTK_WIDGET(mConsole->window()), newKeys());
    gtk_window_fullscreen_on_monitor(mConsole->window(), own);
    gtk_window_present(mConsole->window());
}

void Presenter::swapMonitors() {
    std::swap(mSlidesMonitor, mConsoleMonitor);
    gtk_window_fullscreen_on_monitor(shell().window(), mSlidesMonitor.get());
    gtk_window_fullscreen_on_monitor(mConsole->window(), mConsoleMonitor.get());
}

// Beyond the first and the last slide there is none.
void Presenter::turn(int slides) {
    LecternDocument* shown = document();
    if (shown != nullptr) { // not while it is opened again
        const gint64 slide = gint64{lectern_document_get_part(shown)} + slides;
        const gint64 last = lectern_document_get_n_parts(shown) - 1;
        lectern_document_go_to_part_async(shown, static_cast<int>(std::clamp<gint64>(slide, 0, last)),
                                          nullptr, nullptr, nullptr);
    }
}

GtkEventController* Presenter::newKeys() {
    GtkEventController* keys = gtk_event_controller_key_new();
    gtk_event_controller_set_propagation_phase(keys, GTK_PHASE_CAPTURE);
    g_signal_connect(keys, "key-pressed", G_CALLBACK(onKey), this);
    return keys;
}

gboolean Presenter::onKey(GtkEventControllerKey* /*keys*/, guint key, guint /*code*/,
                          GdkModifierType modifiers, void* self) {
    auto& presenter = *static_cast<Presenter*>(self);
    const bool plain = (modifiers & gtk_accelerator_get_default_mod_mask()) == 0;
    return presenter.mPresenting && plain && presenter.handleKey(key) ? GDK_EVENT_STOP : GDK_EVENT_PROPAGATE;
}

bool Presenter::handleKey(guint key) {
    switch (key) {
    case GDK_KEY_Escape:
        stop();
        return true;
    case GDK_KEY_Right:
    case GDK_KEY_Down:
    case GDK_KEY_Page_Down:
    case GDK_KEY_Return:
    case GDK_KEY_space:
        next();
        return true;
    case GDK_KEY_Left:
    case GDK_KEY_Up:
    case GDK_KEY_Page_Up:
    case GDK_KEY_BackSpace:
        previous();
        return true;
    case GDK_KEY_Home:
        turn(-ALL);
        return true;
    case GDK_KEY_End:
        turn(ALL);
        return true;
    default:
        return false;
    }
}

void Presenter::onMotion(GtkEventControllerMotion* /*motion*/, double x, double y, void* self) {
    auto& presenter = *static_cast<Presenter*>(self);
    // The event also comes without a motion, when what is below the pointer changes.
    if (presenter.mPresenting && (x != presenter.mPointerX || y != presenter.mPointerY)) {
        presenter.mPointerX = x;
        presenter.mPointerY = y;
        presenter.showPointer();
    }
}

void Presenter::showPointer() {
    gtk_widget_set_cursor(GTK_WIDGET(shell().window()), nullptr);
    g_clear_handle_id(&mPointerTimer, g_source_remove);
    mPointerTimer = g_timeout_add_seconds(POINTER_SECONDS, hidePointer, this);
}

gboolean Presenter::hidePointer(void* self) {
    auto& presenter = *static_cast<Presenter*>(self);
    presenter.mPointerTimer = 0;
    gtk_widget_set_cursor_from_name(GTK_WIDGET(presenter.shell().window()), "none");
    return G_SOURCE_REMOVE;
}

} // namespace lectern::viewer
