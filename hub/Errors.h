// SPDX-License-Identifier: Apache-2.0
// Functions that fill a HubError.
#pragma once

#include "hub/hubservice.h"

#include <gio/gio.h>

#include <string>

namespace hub {

// Replaces the contents of the error by code and message. Does nothing if the error
// is null. Always returns false, so that a failing function can return the result.
bool fail(HubError* error, int code, const std::string& message);

// The same for a failure that GLib reported, with the code HUB_ERROR_BUS and the
// message "ACTION: CAUSE". The caller keeps `cause`.
bool failFromBus(HubError* error, const std::string& action, const GError* cause);

} // namespace hub
