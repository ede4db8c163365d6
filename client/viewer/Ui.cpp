// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Ui.h"

#include <string>

namespace lectern::viewer {

Ui::Ui(const char* file) : mBuilder(gtk_builder_new()) {
    gtk_builder_set_translation_domain(mBuilder.get(), TEXT_DOMAIN);
    const std::string path = std::string(RESOURCES) + "ui/" + file;
    GLibHolder<GError> error;
    if (gtk_builder_add_from_resource(mBuilder.get(), path.c_str(), out(error)) == FALSE) {
        g_error("%s", error->message); // the file is part of the program: it is broken
    }
}

GObject* Ui::object(const char* id) const {
    GObject* found = gtk_builder_get_object(mBuilder.get(), id);
    g_assert(found != nullptr);
    return found;
}

GLibHolder<GSignalGroup> signalsOfDocument(Shell& shell) {
    GLibHolder<GSignalGroup> group(g_signal_group_new(LECTERN_TYPE_DOCUMENT));
    g_object_bind_property(shell.view(), "document", group.get(), "target", G_BINDING_SYNC_CREATE);
    return group;
}

GLibHolder<GSignalGroup> onView(Shell& shell, const char* signal, GCallback handler, void* self) {
    GLibHolder<GSignalGroup> group(g_signal_group_new(LECTERN_TYPE_VIEW));
    g_signal_group_connect_swapped(group.get(), signal, handler, self);
    g_signal_group_set_target(group.get(), shell.view());
    return group;
}

GSimpleAction* addAction(GActionMap* actions, const char* name, GCallback handler, void* self) {
    const GLibHolder<GSimpleAction> action(g_simple_action_new(name, nullptr));
    g_signal_connect_swapped(action.get(), "activate", handler, self);
    g_action_map_add_action(actions, G_ACTION(action.get()));
    return action.get();
}

GSimpleAction* addSwitch(GActionMap* actions, const char* name, bool on, GCallback handler, void* self) {
    const GLibHolder<GSimpleAction> action(
        g_simple_action_new_stateful(name, nullptr, g_variant_new_boolean(on ? TRUE : FALSE)));
    g_signal_connect_swapped(action.get(), "activate", handler, self);
    g_action_map_add_action(actions, G_ACTION(action.get()));
    return action.get();
}

} // namespace lectern::viewer
