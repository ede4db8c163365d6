// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hub/hubservice.h"

// The bus method "create": opens a document that paints into a client's frame
// buffer. A file that fails to open is registered and replied to like any other;
// a later queue record (id 8) tells the client the result. Always returns true.
bool create(HubHandle* handle, HubMessage* message, void* data);

// The bus method "destroy". Replies only if the docid is missing. Always returns
// true.
bool destroy(HubHandle* handle, HubMessage* message, void* data);
