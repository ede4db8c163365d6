// SPDX-License-Identifier: Apache-2.0
// Passes method calls from the bus to handlers and their replies back.
#pragma once

#include "hub/hubservice.h"

namespace hub {

struct Category;

// Exports the category's object on its handle's connection. GDBus delivers the
// calls whose object, interface, method and signature match, and answers all
// others with the standard errors. GDBus keeps the category's address, so it must
// stay valid as long as the connection.
bool exportCategory(Category& category, const char* path, HubError* error);

} // namespace hub
