// SPDX-License-Identifier: Apache-2.0
// A caller of services with its own connection.
#pragma once

#include "base/GLibHolder.h"

#include <gio/gio.h>

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

// Runs the default main context until the condition holds, which the context's
// sources make true. Returns false after ten seconds.
bool runUntil(const std::function<bool()>& condition);

// The result of a call: the reply's text (printed if it is not a string), or
// the name and the text of a D-Bus error.
struct Answer {
    std::string error;
    std::string text;

    bool operator==(const Answer&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Answer& answer);

// A pending call. It must not be moved until it is answered.
class PendingCall {
public:
    PendingCall(GDBusConnection* connection, const char* service, const char* path, const char* interface,
                const char* method, GVariant* parameters);
    PendingCall(const PendingCall&) = delete;
    PendingCall& operator=(const PendingCall&) = delete;
    ~PendingCall();

    bool isAnswered() const { return mAnswer.has_value(); }
    // Runs the default main context until the answer has come.
    Answer wait();

private:
    static void finish(GObject* connection, GAsyncResult* result, gpointer self);

    lectern::GLibHolder<GCancellable> mCancellable{g_cancellable_new()};
    std::optional<Answer> mAnswer;
};

class BusClient {
public:
    // The connection is null when the bus cannot be reached.
    explicit BusClient(const std::string& address);

    GDBusConnection* connection() const { return mConnection.get(); }

    // `parameters` is a floating tuple, which is consumed.
    Answer call(const char* service, const char* path, const char* interface, const char* method,
                GVariant* parameters) const;
    // Makes this client the owner of a name.
    bool own(const char* name) const;
    // Runs the default main context until the name has no owner.
    bool waitUntilUnowned(const char* name) const;
    // The process that owns a name.
    std::optional<pid_t> processOf(const char* name) const;

private:
    lectern::GLibHolder<GDBusConnection> mConnection;
};
