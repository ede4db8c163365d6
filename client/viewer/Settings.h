// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <gio/gio.h>

#include <string>

namespace lectern::viewer {

// The folder "share" of this installation or build tree, where translations and the
// schema of the settings are.
std::string dataFolder();
// What the user has set; data/com.kestrel.office.Viewer.gschema.xml lists the keys.
GLibHolder<GSettings> newSettings();

} // namespace lectern::viewer
