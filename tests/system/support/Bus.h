// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "tests/system/support/Subprocess.h"

#include <gio/gio.h>

#include <memory>
#include <string>

// A bus daemon for one test.
class PrivateBus {
public:
    explicit PrivateBus(const std::string& folder);
    const std::string& address() const { return mAddress; }

private:
    std::string mAddress;
    std::unique_ptr<Subprocess> mDaemon;
};

// The result of a call: a reply, or the name of the bus error.
struct BusReply {
    bool replied = false;
    std::string text;
    std::string error;
};

// A client's connection to a bus.
class BusConnection {
public:
    explicit BusConnection(const std::string& address);
    ~BusConnection();
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    // Calls a method of a category such as "/events" with a JSON text.
    BusReply call(const std::string& category, const std::string& method, const std::string& payload,
                  int timeoutMs = 60000);
    // Waits until the service's name has an owner; returns false after the time.
    bool waitForService(int timeoutMs);

private:
    lectern::GLibHolder<GDBusConnection> mConnection;
};
