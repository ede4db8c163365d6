// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <functional>
#include <memory>
#include <string>

namespace lectern {

// Reports when a process leaves the bus. It watches the unique name of the
// service's process, which no other process gets.
class ServiceWatch {
public:
    // onGone: called once, on the connection's thread or, if the connection is lost
    // already, on this thread. It must not wait for the bus.
    ServiceWatch(const Bus& bus, const std::string& uniqueName, std::function<void()> onGone);
    // Waits for a running onGone.
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
