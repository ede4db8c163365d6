// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Office.h"

#include <functional>
#include <string>

namespace lectern::engine::test {

// Starts the suite with a new folder for its files, does the work where the suite may be
// used, removes the folder, and ends the process with the work's result. `folder` is the
// folder's path, ending in "XXXXXX". Without a suite the process ends with 1.
[[noreturn]] void runWithOffice(std::string folder,
                                const std::function<int(Office& office, const std::string& folder)>& work);

} // namespace lectern::engine::test
