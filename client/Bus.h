// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <stop_token>
#include <string>

#include "client/GLibHolder.h"
#include "client/Result.h"

namespace lectern {

// The service's name on the bus; it prefixes its interfaces too.
inline constexpr const char* serviceName = "com.kestrel.office";

// How long a call may take, and what ends it early.
struct CallLimits {
    std::chrono::milliseconds timeout{30'000};
    std::stop_token stop = {};
};

// A connection to a message bus, and the service's methods on it. May be used
// from any thread, by several at a time; calls block theirs.
class Bus {
public:
    // address: as D-Bus writes it, for example "unix:path=/run/user/1000/bus".
    static Result<Bus> connect(const std::string& address, const std::stop_token& stop = {});

    // Calls a method such as ("/common", "getDocProperties") and gives the text
    // of its reply. A reply with an "errorCode" is an error of kind refused.
    // Starts the service where the bus can do that.
    Result<std::string> call(const char* category, const char* method, const std::string& payload,
                             const CallLimits& limits = {}) const;

    // Calls a method that never replies, without waiting; has left the process
    // when this returns.
    Failure post(const char* category, const char* method, const std::string& payload) const;

    // Whether the connection is lost for good.
    bool isClosed() const { return g_dbus_connection_is_closed(mConnection.get()) != FALSE; }
    // Whether the service runs on this bus.
    bool serviceRuns() const;
    // Whether it runs or can be started by it.
    bool offersService() const;

private:
    explicit Bus(GDBusConnection* connection) : mConnection(connection) {}
    GLibHolder<GVariant> askDaemon(const char* method, GVariant* arguments, const char* replyType) const;

    GLibHolder<GDBusConnection> mConnection;
};

} // namespace lectern
