// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <functional>
#include <memory>
#include <string>

namespace lectern {

// Tells when a process leaves the bus: that of the service, by its unique name,
// which no other process gets again.
class ServiceWatch {
public:
    // onGone: called once, on the connection's thread or, where the process has
    // gone before, on this one. It must not wait for anything on the bus.
    ServiceWatch(const Bus& bus, const std::string& uniqueName, std::function<void()> onGone);
    // Waits for a call of onGone that is going on.
    ~ServiceWatch();
    ServiceWatch(const ServiceWatch&) = delete;
    ServiceWatch& operator=(const ServiceWatch&) = delete;

private:
    struct Watch;
    const Bus mBus;
    std::shared_ptr<Watch> mWatch; // shared with the connection's thread
    std::string mRule;
    unsigned int mFilter = 0;
};

} // namespace lectern
