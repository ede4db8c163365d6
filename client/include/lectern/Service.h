// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <memory>
#include <optional>
#include <stop_token>
#include <string>

#pragma GCC visibility push(default)

namespace lectern {

class PrivateBus;

// The address of the session's bus from the environment, if there is one.
std::optional<std::string> sessionBusAddress();

struct ServiceOptions {
    // A private service goes into an IPC namespace of its own, where the system
    // allows one, and takes this process along. REQUIRES: one thread only.
    bool isolate = false;
    std::stop_token stop = {};
};

// The way to the document service: the one on the session's bus where that bus
// has or can start it, else a private one that lives as long as this object.
class Service {
public:
    static Result<Service> open(const ServiceOptions& options = {});

    const Bus& bus() const { return mBus; }
    bool isPrivate() const { return mPrivate != nullptr; }

private:
    Service(std::shared_ptr<PrivateBus> privateBus, Bus bus)
        : mPrivate(std::move(privateBus)), mBus(std::move(bus)) {}

    std::shared_ptr<PrivateBus> mPrivate; // outlives the connection to it
    Bus mBus;
};

} // namespace lectern

#pragma GCC visibility pop
