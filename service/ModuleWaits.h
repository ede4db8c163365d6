// SPDX-License-Identifier: Apache-2.0
// What the service does while a module's call waits for a rendering engine: it serves
// other documents. The document of the call stays claimed (service/Registry.h).
//
// This can break no order of locks, although the call holds the locks of its view and its
// module when it takes the registry's again: only the thread that has claimed the document
// takes those.
#pragma once

// Called by modules around a wait, on the thread that waits: see
// lectern_module_set_wait_calls in modules/ModuleTypes.h.
void beginModuleWait();
void endModuleWait();
