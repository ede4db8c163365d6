// SPDX-License-Identifier: Apache-2.0
#pragma once

// Tells every loaded rendering module that the service is about to end, so that
// a call in progress returns soon; modules that have no say in it are left alone
// (see lectern_module_stop_soon in modules/ModuleTypes.h). From any thread, with
// or without locks, any number of times; not in a signal handler.
void stopModulesSoon();
