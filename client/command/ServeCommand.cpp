// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/Pause.h"
#include "client/command/ServiceCall.h"
#include "client/lib/Json.h"
#include "client/lib/PrivateBus.h"
#include <lectern/Bus.h>

#include <cstdio>

namespace lectern {

namespace {

void explain(const std::string& address) {
    std::printf("%s\n", address.c_str());
    std::fflush(stdout);
    std::fprintf(stderr,
                 "The document service runs at the address above. To use it, type in another terminal:\n"
                 "  export DBUS_SESSION_BUS_ADDRESS='%s'\n"
                 "  lectern open FILE -o OUT.png\n"
                 "  busctl --user call %s /common %s.common getDocProperties s '{\"docid\": 0}'\n"
                 "The service stops when idle and starts again at the next call. Press Ctrl-C to end both.\n",
                 address.c_str(), SERVICE_NAME, SERVICE_NAME);
}

Failure waitForEnd(const Bus& bus, const std::stop_token& stop) {
    constexpr std::chrono::milliseconds BETWEEN_CHECKS{1'000};
    do {
        if (bus.isClosed()) {
            return Error{Error::Kind::Bus, "the private bus has ended", 0, {}};
        }
    } while (pauseFor(BETWEEN_CHECKS, stop));
    return std::nullopt;
}

} // namespace

// Stays in the machine's IPC namespace, unlike the other sub-commands, because
// other processes share memory with this service.
int runServe(const ServeArguments& /*none*/, Interrupt& interrupt) {
    interrupt.watch();
    const Result<PrivateBus> privateBus = PrivateBus::start(Complaints::Shown);
    if (!privateBus) {
        return report(privateBus.error());
    }
    const Result<Bus> bus = Bus::connect(privateBus->address(), interrupt.token());
    if (!bus) {
        return report(bus.error());
    }
    const auto started =
        callService(*bus, "/events", "ping", JsonMembers().text(), {.stop = interrupt.token()});
    if (!started) {
        return report(started.error());
    }
    explain(privateBus->address());
    const Failure failure = waitForEnd(*bus, interrupt.token());
    return failure ? report(*failure) : STATUS_DONE;
}

} // namespace lectern
