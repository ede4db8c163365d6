// SPDX-License-Identifier: Apache-2.0
// The road to the bus, and names on it.
#pragma once

#include "base/GLibHolder.h"
#include "hub/hubservice.h"

#include <gio/gio.h>

namespace hub {

// A connection of its own to the bus that started the process, else to the
// session's; never the one that other code of the process shares. Its loss does
// not end the process. Null on failure.
lectern::GLibHolder<GDBusConnection> connectToBus(HubError* error);

// Fails with HUB_ERROR_NAME_TAKEN when the name has an owner.
bool checkNameIsFree(GDBusConnection* connection, const char* name, HubError* error);

// Takes the name or fails at once with HUB_ERROR_NAME_TAKEN: no place in a queue
// is kept, and nobody can take the name away later.
bool takeName(GDBusConnection* connection, const char* name, HubError* error);

} // namespace hub
