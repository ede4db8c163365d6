// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include <lectern/Result.h>

#include <gio/gio.h>

namespace lectern {

// The same error in the domains of GLib programs: G_IO_ERROR for a cancelled call,
// LECTERN_DOCUMENT_ERROR for what is wrong with a document, LECTERN_SERVICE_ERROR for all
// else.
GLibHolder<GError> toGError(const Error& error);

} // namespace lectern
