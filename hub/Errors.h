// SPDX-License-Identifier: Apache-2.0
// Filling a HubError.
#pragma once

#include "hub/hubservice.h"

#include <gio/gio.h>

#include <string>

namespace hub {

// Puts code and message into the error, in place of what it held; a null error
// is left alone. Returns false, so that a failing function can return it.
bool fail(HubError* error, int code, const std::string& message);

// The same for a failure that GLib reported while doing what action names; the
// code is HUB_ERROR_BUS.
bool failFromBus(HubError* error, const std::string& action, const GError* cause);

} // namespace hub
