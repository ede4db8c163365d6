// SPDX-License-Identifier: Apache-2.0
// From calls on the bus to handlers, and back.
#pragma once

#include "hub/hubservice.h"

namespace hub {

struct Category;

// Puts the category on its handle's connection: GDBus delivers each call whose
// object, interface, method and signature fit, and answers all others with the
// standard errors. The category must stay where it is for as long as the
// connection lives.
bool exportCategory(Category& category, const char* path, HubError* error);

} // namespace hub
