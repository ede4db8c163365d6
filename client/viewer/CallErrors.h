// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib.h>

#include <string>

namespace lectern::viewer {

// Why a call of an open document failed: a translated sentence for the user.
std::string explained(const GError& error);

} // namespace lectern::viewer
