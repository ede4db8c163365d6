// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/NightReading.h"

#include "client/viewer/Settings.h"

namespace lectern::viewer {

namespace {

// Settings and the actions that switch them.
constexpr const char* NIGHT = "night";
constexpr const char* WITH_DARK_STYLE = "night-with-dark-style";

} // namespace

NightReading::NightReading(Shell& shell)
    : Part(shell), mSettings(newSettings()),
      mNight(addSwitch(shell.actions(), NIGHT, false, G_CALLBACK(onSignal<&NightReading::toggle>), this)) {
    const GLibHolder<GAction> withDarkStyle(g_settings_create_action(mSettings.get(), WITH_DARK_STYLE));
    g_action_map_add_action(shell.actions(), withDarkStyle.get());
    const auto change = G_CALLBACK(onSignal<&NightReading::apply>);
    g_signal_connect_swapped(mSettings.get(), "changed", change, this);
    g_signal_connect_swapped(adw_style_manager_get_default(), "notify::dark", change, this);
    apply();
}

NightReading::~NightReading() {
    g_signal_handlers_disconnect_by_data(mSettings.get(), this);
    g_signal_handlers_disconnect_by_data(adw_style_manager_get_default(), this);
}

// The day ends the following of the dark style too, which may be on.
void NightReading::toggle() {
    const bool day = lectern_view_get_night(shell().view()) != FALSE;
    g_settings_set_boolean(mSettings.get(), NIGHT, !day);
    if (day) {
        g_settings_set_boolean(mSettings.get(), WITH_DARK_STYLE, FALSE);
    }
}

void NightReading::apply() {
    const bool night = g_settings_get_boolean(mSettings.get(), NIGHT) != FALSE ||
                       (g_settings_get_boolean(mSettings.get(), WITH_DARK_STYLE) != FALSE &&
                        adw_style_manager_get_dark(adw_style_manager_get_default()) != FALSE);
    lectern_view_set_night(shell().view(), night);
    setOn(mNight, night);
}

} // namespace lectern::viewer
