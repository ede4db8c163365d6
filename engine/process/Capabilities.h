// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Whether this process has the capability of reading every user's files, as root's have.
bool mayReadEveryFile();

// Gives up all capabilities except that one. Returns false on failure.
[[nodiscard]] bool dropCapabilities();

} // namespace lectern::engine
