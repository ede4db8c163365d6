// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/FullScreen.h"

namespace lectern::viewer {

namespace {

constexpr double EDGE = 3; // how near the pointer comes to the top edge, in pixels

} // namespace

FullScreen::FullScreen(Shell& shell, AdwFlap* top, GtkRevealer* bottom)
    : Part(shell), mTop(top), mBottom(bottom),
      mFullScreen(
          addSwitch(shell.actions(), "fullscreen", false, G_CALLBACK(onSignal<&FullScreen::toggle>), this)) {
    g_signal_connect_swapped(shell.window(), "notify::fullscreened",
                             G_CALLBACK(onSignal<&FullScreen::follow>), this);
    onDocument<&FullScreen::onTap>("click-unused", this);
    addControllers();
}

void FullScreen::addControllers() {
    GtkWidget* window = GTK_WIDGET(shell().window());
    GtkEventController* keys = gtk_event_controller_key_new();
    g_signal_connect(keys, "key-pressed", G_CALLBACK(onKey), this);
    gtk_widget_add_controller(window, keys);
    GtkEventController* motion = gtk_event_controller_motion_new();
    gtk_event_controller_set_propagation_phase(motion, GTK_PHASE_CAPTURE);
    g_signal_connect(motion, "motion", G_CALLBACK(onMotion), this);
    gtk_widget_add_controller(window, motion);
}

void FullScreen::enter(GdkMonitor* monitor) {
    if (monitor != nullptr) {
        gtk_window_fullscreen_on_monitor(shell().window(), monitor);
    } else {
        gtk_window_fullscreen(shell().window());
    }
}

void FullScreen::toggle() {
    isFull() ? leave() : enter(nullptr);
}

// The desktop may change it too.
void FullScreen::follow() {
    setOn(mFullScreen, isFull());
    adw_flap_set_fold_policy(mTop, isFull() ? ADW_FLAP_FOLD_POLICY_ALWAYS : ADW_FLAP_FOLD_POLICY_NEVER);
    if (isFull()) {
        for (const char* pane : {"sidebar", "notes"}) {
            if (GAction* action = g_action_map_lookup_action(shell().actions(), pane)) {
                g_action_change_state(action, g_variant_new_boolean(FALSE));
            }
        }
    }
    reveal(!isFull());
}

void FullScreen::onTap() {
    if (isFull() && mHeaderComesBack) {
        reveal(adw_flap_get_reveal_flap(mTop) == FALSE);
    }
}

void FullScreen::reveal(bool shown) {
    adw_flap_set_reveal_flap(mTop, shown);
    gtk_revealer_set_reveal_child(mBottom, shown);
}

gboolean FullScreen::onKey(GtkEventControllerKey* /*keys*/, guint key, guint /*code*/,
                           GdkModifierType /*modifiers*/, void* self) {
    auto& full = *static_cast<FullScreen*>(self);
    if (key != GDK_KEY_Escape || !full.isFull()) {
        return GDK_EVENT_PROPAGATE;
    }
    full.leave();
    return GDK_EVENT_STOP;
}

void FullScreen::onMotion(GtkEventControllerMotion* /*motion*/, double /*x*/, double y, void* self) {
    static_cast<FullScreen*>(self)->onPointerAt(y);
}

// The header stays while it has the focus, such as of the search.
void FullScreen::onPointerAt(double y) {
    if (!isFull() || !mHeaderComesBack) {
        return;
    }
    GtkWidget* header = adw_flap_get_flap(mTop);
    const bool revealed = adw_flap_get_reveal_flap(mTop) != FALSE;
    if (!revealed && y < EDGE) {
        reveal(true);
    } else if (revealed && y > gtk_widget_get_height(header) &&
               gtk_widget_get_focus_child(header) == nullptr) {
        reveal(false);
    }
}

} // namespace lectern::viewer
