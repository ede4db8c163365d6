// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern {

// Finds one of Lectern's own programs: the path in the environment variable, or
// else beside the running program, in the bin and libexec folders of the
// installation of the running program or this library, or on PATH. Returns an
// empty text when there is none.
std::string findProgram(const char* name, const char* overridingVariable);

} // namespace lectern
