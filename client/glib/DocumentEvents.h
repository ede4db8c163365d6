// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/glib/DocumentObject.h"

namespace lectern {

// Installs the signals of the class.
void installSignals(GType type);

// The notifications of the service as signals and properties of the document.
ViewEvents eventsOf(LecternDocument* self);

// Asks for what a picture does not tell, unless that is under way.
void refreshView(LecternDocument* self);
// Asks for the document's title.
void refreshTitle(LecternDocument* self);

} // namespace lectern
