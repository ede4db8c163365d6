// SPDX-License-Identifier: Apache-2.0
// Connecting to the bus and owning a name on it.
#pragma once

#include "base/GLibHolder.h"
#include "hub/hubservice.h"

#include <gio/gio.h>

namespace hub {

// Opens a private connection to the bus that started the process, or else to the
// session bus. Losing the connection does not end the process. Returns null, with
// the error filled, on failure.
lectern::GLibHolder<GDBusConnection> connectToBus(HubError* error);

// True if the name has no owner. Otherwise fails with HUB_ERROR_NAME_TAKEN, or with
// HUB_ERROR_BUS if the bus does not answer.
bool checkNameIsFree(GDBusConnection* connection, const char* name, HubError* error);

// Becomes the owner of the name, or fails at once with HUB_ERROR_NAME_TAKEN (or
// HUB_ERROR_BUS). Does not queue for the name, and does not let others replace
// the owner later.
bool takeName(GDBusConnection* connection, const char* name, HubError* error);

} // namespace hub
