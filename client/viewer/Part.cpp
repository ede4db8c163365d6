// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Part.h"

#include "client/viewer/CallErrors.h"

namespace lectern::viewer {

Part::Part(Shell& shell) : mShell(shell), mDocumentSignals(signalsOfDocument(shell)) {
    const auto update = G_CALLBACK(onSignal<&Part::update>);
    g_signal_connect_swapped(mDocumentSignals.get(), "bind", update, this);
    g_signal_connect_swapped(mDocumentSignals.get(), "unbind", update, this);
    onDocument<&Part::update>("notify::opened", this);
}

// The group's end emits "unbind", when the derived part has gone.
Part::~Part() {
    g_signal_handlers_disconnect_by_data(mDocumentSignals.get(), this);
}

void Part::update() {
    mPending.giveUp();
    show(document());
}

void Part::complain(const GError* error) const {
    if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED) == FALSE) {
        mShell.say(explained(*error));
    }
}

// Without a handler of "activate" the action changes its own state.
GSimpleAction* Part::addToggle(const char* name) {
    const GLibHolder<GSimpleAction> toggle(
        g_simple_action_new_stateful(name, nullptr, g_variant_new_boolean(FALSE)));
    g_action_map_add_action(mShell.actions(), G_ACTION(toggle.get()));
    return toggle.get();
}

bool isOn(GSimpleAction* toggle) {
    const GLibHolder<GVariant> state(g_action_get_state(G_ACTION(toggle)));
    return g_variant_get_boolean(state.get()) != FALSE;
}

void setOn(GSimpleAction* toggle, bool isOn) {
    g_simple_action_set_state(toggle, g_variant_new_boolean(isOn ? TRUE : FALSE));
}

} // namespace lectern::viewer
