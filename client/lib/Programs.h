// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern {

// Where one of Lectern's own programs is: what the environment variable names,
// else beside the running program, else in the bin and libexec folders of the
// installation that the running program or this library lies in, else on PATH.
// Empty when there is none.
std::string findProgram(const char* name, const char* overridingVariable);

} // namespace lectern
