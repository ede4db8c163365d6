// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "client/viewer/Shell.h"

#include <glib/gi18n.h>

namespace lectern::viewer {

// The widgets of a file in ui/, with translated texts. A part owns one, so that its
// widgets live as long as the part.
class Ui {
public:
    // file: such as "search-bar.ui".
    explicit Ui(const char* file);

    // The object with this id. REQUIRES: there is one.
    GObject* object(const char* id) const;
    GtkWidget* widget(const char* id) const { return GTK_WIDGET(object(id)); }
    GtkLabel* label(const char* id) const { return GTK_LABEL(object(id)); }
    // Calls self->member() at each such signal of the object with this id; see onSignal.
    void connect(const char* id, const char* signal, GCallback handler, void* self) const {
        g_signal_connect_swapped(object(id), signal, handler, self);
    }

private:
    GLibHolder<GtkBuilder> mBuilder;
};

// Handlers of the signals of the view's document, whichever that is; without one they
// wait. Connect with g_signal_group_connect_swapped. The end of the group disconnects.
GLibHolder<GSignalGroup> signalsOfDocument(Shell& shell);
// Calls a handler at each such signal of the view, until the end of the group.
GLibHolder<GSignalGroup> onView(Shell& shell, const char* signal, GCallback handler, void* self);

// Adds an action without a parameter that calls self->member():
//
//     addAction(shell.actions(), "search", G_CALLBACK(onSignal<&SearchBar::show>), this);
//
// Returns the action, which the map owns.
GSimpleAction* addAction(GActionMap* actions, const char* name, GCallback handler, void* self);
// The same for an action with a state, such as a check mark of a menu. The handler
// changes the state.
GSimpleAction* addSwitch(GActionMap* actions, const char* name, bool on, GCallback handler, void* self);

} // namespace lectern::viewer
