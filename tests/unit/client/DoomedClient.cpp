// SPDX-License-Identifier: Apache-2.0
// A client for a test to kill: starts a private bus with the service, prints
// the bus's address and waits.
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
    // The call must fail: this service never takes its name, so it does not reply.
    if (!bus || bus->call("/events", "ping", "{}", {.timeout = std::chrono::milliseconds(300)})) {
        return 1;
    }
    std::printf("%s\n", privateBus->address().c_str());
    std::fflush(stdout);
    pause();
    return 0;
}
