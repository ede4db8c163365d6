// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

enum class Namespaces {
    None,      // the system allows none
    OfNetwork, // an empty network and no System V objects
    OfUserToo, // the same, with capabilities and counts of processes of their own
    Failed,    // the process must end; the reason is on standard error
};

// Moves this process, and those it forks, into namespaces of their own as far as the
// system allows. User and group stay the same. A process that may read every file stays
// in its user namespace, because it could not do so in another one. REQUIRES: the process
// has one thread.
[[nodiscard]] Namespaces enterNamespaces();

} // namespace lectern::engine
