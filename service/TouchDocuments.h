// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hub/hubservice.h"

// Methods of "/touch" that change what the registry holds of a document. Both always
// return true.

// Gives up the open of a document, which the client is told by the record with id 8.
bool cancel(HubHandle* handle, HubMessage* message, void* data);

// Gives a document's view another size and another frame buffer, and detaches the one
// before. A frame buffer is refused as in "create"; then nothing changes.
bool resize(HubHandle* handle, HubMessage* message, void* data);
