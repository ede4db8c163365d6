// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <csignal>

namespace lectern::engine {

// What signals do in this process, as it was when this object was made. The suite
// installs handlers that try to save the user's documents; after a crash they can wait
// for ever for what the crash has left locked. Here a crash must end the process at once.
class FaultSignals {
public:
    FaultSignals();
    // Gives every signal that has a handler now its action of then. Threads and forks made
    // later have it too.
    void restore() const;

private:
    static constexpr int LAST = 31; // real-time signals, which follow, belong to the C library
    std::array<struct sigaction, LAST + 1> mActions{};
};

} // namespace lectern::engine
