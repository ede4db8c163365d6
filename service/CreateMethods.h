// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hub/hubservice.h"

// The bus method "create": opens a document into a client's frame buffer. A file
// that does not open is registered and answered like any other; the result
// reaches the client in a message (id 8) afterwards.
bool create(HubHandle* handle, HubMessage* message, void* data);

// The bus method "destroy": never answered but for a missing docid.
bool destroy(HubHandle* handle, HubMessage* message, void* data);
