// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>

struct _GDBusConnection; // GIO's connection, which a program need not know

namespace lectern {
class LateReply; // not part of the interface
}

#pragma GCC visibility push(default)

namespace lectern {

// The service's name on the bus; it prefixes its interfaces too.
inline constexpr const char* SERVICE_NAME = "com.kestrel.office";

// How long a call may take, what ends it early, and who is told that it goes on.
struct CallLimits {
    // Longer than the longest call of the engine behind the longest open of
    // another client: the service answers before.
    std::chrono::milliseconds timeout{180'000};
    std::stop_token stop = {};
    // Called a few times a second with the time since the start of the call, on
    // the thread that calls.
    std::function<void(std::chrono::milliseconds elapsed)> onProgress = {};
};

// What a method gave, and the process that gave it: its unique name on the bus.
struct Reply {
    std::string text;
    std::string sender;
};

// A connection to a message bus, and the service's methods on it. May be used
// from any thread, by several at a time; calls block theirs. Copies share the
// connection, which ends with the last.
class Bus {
public:
    // address: as D-Bus writes it, for example "unix:path=/run/user/1000/bus".
    static Result<Bus> connect(const std::string& address, const std::stop_token& stop = {});

    // Calls a method such as ("/common", "getDocProperties") and gives the text
    // of its reply. A reply with an "errorCode" is an error of kind refused.
    // Starts the service where the bus can do that.
    Result<std::string> call(const char* category, const char* method, const std::string& payload,
                             const CallLimits& limits = {}) const;

    // What becomes of a reply that comes when its call has been given up: called
    // on a thread of the connection's, with a bus that is good for post only.
    using LateHandler = std::function<void(const Bus&, const Reply&)>;
    // The same as call, for methods whose effect outlives the wait for them.
    Result<Reply> request(const char* category, const char* method, const std::string& payload,
                          const CallLimits& limits, LateHandler late = {}) const;

    // Sends a call of a method that never replies to the process of this unique
    // name, or to the service as long as it runs: it is not started for it.
    Failure post(const char* category, const char* method, const std::string& payload,
                 const std::string& destination = SERVICE_NAME) const;
    // Waits until everything posted has left the process.
    Failure flush() const;

    // Whether the connection is lost for good.
    bool isClosed() const;
    // Whether the service, or the process of a unique name, is on this bus.
    bool serviceRuns(const std::string& name = SERVICE_NAME) const;
    // Whether it runs or can be started by it.
    bool offersService() const;

    _GDBusConnection* connection() const { return mConnection.get(); }

private:
    friend class LateReply;
    explicit Bus(_GDBusConnection* owned);

    std::shared_ptr<_GDBusConnection> mConnection;
};

} // namespace lectern

#pragma GCC visibility pop
