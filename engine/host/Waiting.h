// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"

namespace lectern::engine {

// Around each wait for an engine or the fork server: tells the program that has set wait
// calls (lectern_module_set_wait_calls in modules/ModuleTypes.h). Only the outermost of
// nested ones on a thread does.
class LECTERN_ENGINE_EXPORT Waiting {
public:
    Waiting();
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
};

} // namespace lectern::engine
