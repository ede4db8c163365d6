// SPDX-License-Identifier: Apache-2.0
// Calls of rendering modules that belong to no document. modules/ModuleTypes.h tells
// what a module that exports these functions does.
#pragma once

// Loads the rendering modules, lets those that can tell of their waits do so
// (service/ModuleWaits.h), and those that can prepare the first open begin with it in the
// background. A module that cannot be loaded is left to the first open,
// which reports it. Call it once, when the service starts.
void prepareModules();

// Tells every loaded rendering module that the service is about to end, so that
// a call in progress returns soon. May be called on any thread, with or without locks,
// any number of times, but not in a signal handler.
void stopModulesSoon();
