// SPDX-License-Identifier: Apache-2.0
#include "engine/process/FaultSignals.h"

namespace lectern::engine {

FaultSignals::FaultSignals() {
    for (int signal = 1; signal <= LAST; ++signal) {
        sigaction(signal, nullptr, &mActions[static_cast<std::size_t>(signal)]);
    }
}

// Ignored signals stay ignored: a connection that ends must not end the process.
void FaultSignals::restore() const {
    for (int signal = 1; signal <= LAST; ++signal) {
        struct sigaction now {};
        const bool isKnown = sigaction(signal, nullptr, &now) == 0;
        if (isKnown && now.sa_handler != SIG_DFL && now.sa_handler != SIG_IGN) {
            sigaction(signal, &mActions[static_cast<std::size_t>(signal)], nullptr);
        }
    }
}

} // namespace lectern::engine
