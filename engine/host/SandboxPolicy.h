// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Whether engines may be started on this kernel. Without Landlock they are confined less:
// then this process is made undumpable, so that no engine of the same user can read or
// change its memory, and the first call says on standard error what is missing. With
// LECTERN_SANDBOX=require in the environment it returns false there, and says so each time.
[[nodiscard]] bool sandboxSuffices();

} // namespace lectern::engine
