// SPDX-License-Identifier: Apache-2.0
// A client to be killed: starts a private bus and the service on it, prints the
// bus's address and waits.
#include "client/lib/PrivateBus.h"
#include <lectern/Bus.h>

#include <unistd.h>

#include <cstdio>

int main() {
    const auto privateBus = lectern::PrivateBus::start();
    if (!privateBus) {
        return 1;
    }
    const auto bus = lectern::Bus::connect(privateBus->address());
    // A service that never takes its name leaves the call unanswered.
    if (!bus || bus->call("/events", "ping", "{}", {.timeout = std::chrono::milliseconds(300)})) {
        return 1;
    }
    std::printf("%s\n", privateBus->address().c_str());
    std::fflush(stdout);
    pause();
    return 0;
}
