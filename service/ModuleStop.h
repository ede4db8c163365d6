// SPDX-License-Identifier: Apache-2.0
#pragma once

// Tells every loaded rendering module that the service is about to end, so that
// a call in progress returns soon. Calls lectern_module_stop_soon (see
// modules/ModuleTypes.h) in the modules that export it. May be called on any
// thread, with or without locks, any number of times, but not in a signal handler.
void stopModulesSoon();
