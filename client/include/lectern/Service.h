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

// The address of the session bus: DBUS_SESSION_BUS_ADDRESS, else the socket "bus" in
// XDG_RUNTIME_DIR. Nothing when the environment has neither.
std::optional<std::string> sessionBusAddress();

struct ServiceOptions {
    // Moves this process, and a private service that it starts, into a new IPC
    // namespace, if the system allows it. Has no effect when the session bus is
    // used. REQUIRES: the process has one thread.
    bool isolate = false;
    // Cancels the connecting, which then fails with Error::Kind::Cancelled.
    std::stop_token stop = {};
};

// A connection to the document service. Uses the session bus when the service runs
// there or that bus can start it. Otherwise starts a private bus with a service of its
// own, and ends both when the last copy of this object is destroyed.
//
// Threads: as Bus. Keep the object for as long as its documents.
class Service {
public:
    // Does what ServiceOptions::isolate asks for, ahead of open(): for programs that open
    // the service only after they have started threads. Has no effect when the session bus
    // has the service. REQUIRES: the process has one thread. Errors: system (not allowed).
    static Failure isolate();
    // Blocks until the connection exists. Does not start the service itself: the first
    // call does. Errors: system (a program is missing or cannot start), bus, cancelled.
    static Result<Service> open(const ServiceOptions& options = {});

    const Bus& bus() const { return mBus; }
    // True for a private bus.
    bool isPrivate() const { return mPrivate != nullptr; }

private:
    Service(std::shared_ptr<PrivateBus> privateBus, Bus bus)
        : mPrivate(std::move(privateBus)), mBus(std::move(bus)) {}

    std::shared_ptr<PrivateBus> mPrivate; // outlives the connection to it
    Bus mBus;
};

} // namespace lectern

#pragma GCC visibility pop
