// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>

struct _GDBusConnection; // GIO's GDBusConnection; programs can ignore it

namespace lectern {
class LateReply; // not part of the interface
}

#pragma GCC visibility push(default)

namespace lectern {

// The service's name on the bus, and the first part of its interface names.
inline constexpr const char* SERVICE_NAME = "com.kestrel.office";

// Limits of one call: its time-out, a way to cancel it, and a progress callback.
struct CallLimits {
    // More than 0. The service handles one call at a time, so a call may wait behind
    // another client's open. The default covers the engine's time limits for both.
    std::chrono::milliseconds timeout{180'000};
    // Cancels the call, which then fails with Error::Kind::Cancelled.
    std::stop_token stop = {};
    // Called on the calling thread with the time since the call began: four times
    // a second during a bus call, once a second while a paint is awaited.
    std::function<void(std::chrono::milliseconds elapsed)> onProgress = {};
};

// A method's reply, and the unique bus name of the process that sent it.
struct Reply {
    std::string text;
    std::string sender;
};

// A connection to a message bus, with the service's methods on it.
//
// Copies share the connection; it is closed when the last copy is destroyed.
// Threads: any number of threads may use it at the same time. Every function
// blocks its caller until it has a result, except post() and isClosed().
class Bus {
public:
    // Connects to the bus at a D-Bus address, such as
    // "unix:path=/run/user/1000/bus". Fails with Error::Kind::Bus when the bus
    // cannot be reached, and with cancelled when `stop` is used.
    static Result<Bus> connect(const std::string& address, const std::stop_token& stop = {});

    // Calls a method, such as "getDocProperties" of the category "/common", and
    // returns the text of its reply. The payload is a JSON object in UTF-8. The
    // bus starts the service if it can and the service does not run.
    //
    // Errors: argument (the payload is not UTF-8), bus (no service, no such
    // method, lost connection), TimedOut, Cancelled, and Refused (the reply has an
    // "errorCode"; Error::name holds it and Error::reply the whole text).
    Result<std::string> call(const char* category, const char* method, const std::string& payload,
                             const CallLimits& limits = {}) const;

    // Handles a reply that arrives after its call has timed out or was cancelled.
    // Runs on a thread of the connection. Only post() may be called on its bus.
    using LateHandler = std::function<void(const Bus&, const Reply&)>;
    // Like call(), for methods that take effect even when the caller has stopped
    // waiting. Also returns the sender.
    Result<Reply> request(const char* category, const char* method, const std::string& payload,
                          const CallLimits& limits, LateHandler late = {}) const;

    // Sends a call of a method that never replies. The destination is a unique bus
    // name, or the service's name. Never starts the service. Success means that
    // the call is queued in this process, not that it has arrived.
    Failure post(const char* category, const char* method, const std::string& payload,
                 const std::string& destination = SERVICE_NAME) const;
    // Waits until every posted call has been sent.
    Failure flush() const;

    // True once the connection is lost. It is never restored.
    bool isClosed() const;
    // True when this name has an owner on the bus: the service's own name, or a
    // unique name. False, after at most 5 seconds, when the bus does not answer.
    bool serviceRuns(const std::string& name = SERVICE_NAME) const;
    // True when the service runs on this bus or the bus can start it.
    bool offersService() const;

    // The connection itself; stays owned by the bus.
    _GDBusConnection* connection() const { return mConnection.get(); }

private:
    friend class LateReply;
    explicit Bus(_GDBusConnection* owned);

    std::shared_ptr<_GDBusConnection> mConnection;
};

} // namespace lectern

#pragma GCC visibility pop
