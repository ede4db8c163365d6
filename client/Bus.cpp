// SPDX-License-Identifier: Apache-2.0
#include "client/Bus.h"

#include <functional>

#include "client/Errors.h"
#include "client/Json.h"

namespace lectern {

namespace {

constexpr int daemonTimeoutMs = 5'000;

// A GCancellable that follows a stop token for the length of a call.
class Cancellation {
public:
    explicit Cancellation(const std::stop_token& stop)
        : mCancellable(g_cancellable_new()),
          mCallback(stop, [cancellable = mCancellable.get()] { g_cancellable_cancel(cancellable); }) {}

    GCancellable* get() const { return mCancellable.get(); }

private:
    using Action = std::function<void()>;
    GLibHolder<GCancellable> mCancellable;
    std::stop_callback<Action> mCallback;
};

// Where a method lies: the category is an object path and an interface.
struct Place {
    explicit Place(const char* category) : path(category), interface(serviceName) {
        interface += '.';
        interface += category + 1;
    }
    const char* path;
    std::string interface;
};

bool isSpawnError(GQuark domain, int code) {
    return domain == G_DBUS_ERROR && code >= G_DBUS_ERROR_SPAWN_EXEC_FAILED &&
           code <= G_DBUS_ERROR_SPAWN_NO_MEMORY;
}

Error busError(GError* failure, const char* method) {
    const bool ofBus = failure->domain == G_DBUS_ERROR;
    const bool ofIo = failure->domain == G_IO_ERROR;
    if (ofIo && failure->code == G_IO_ERROR_CANCELLED) {
        return {Error::Kind::cancelled, "interrupted", 0, {}};
    }
    if ((ofIo && failure->code == G_IO_ERROR_TIMED_OUT) || (ofBus && failure->code == G_DBUS_ERROR_TIMEOUT)) {
        return {
            Error::Kind::timedOut, std::string("the service did not answer '") + method + "' in time", 0, {}};
    }
    Error error{Error::Kind::bus, {}, failure->code, {}};
    if (GLibHolder<char> name{g_dbus_error_get_remote_error(failure)}) {
        error.name = name.get();
    }
    g_dbus_error_strip_remote_error(failure);
    const std::string reason = failure->message;
    if (ofIo && failure->code == G_IO_ERROR_CLOSED) {
        error.text = "the connection to the bus was lost";
    } else if (ofBus && failure->code == G_DBUS_ERROR_NO_REPLY) {
        error.text = std::string("the service gave no answer to '") + method + "'";
    } else if (ofBus && (failure->code == G_DBUS_ERROR_SERVICE_UNKNOWN ||
                         failure->code == G_DBUS_ERROR_NAME_HAS_NO_OWNER)) {
        error.text = "no document service runs on the bus";
    } else if (ofBus && failure->code == G_DBUS_ERROR_SPAWN_CHILD_EXITED) {
        error.text = "the document service does not start; another one may be running on this machine (" +
                     reason + ")";
    } else if (isSpawnError(failure->domain, failure->code)) {
        error.text = "the document service does not start (" + reason + ")";
    } else {
        error.text = "the bus reports: " + reason;
    }
    return error;
}

bool isBusText(const std::string& text) {
    return g_utf8_validate(text.c_str(), static_cast<gssize>(text.size()), nullptr) != FALSE;
}

Error notBusText() {
    return {Error::Kind::argument, "paths and texts must be valid UTF-8", 0, {}};
}

} // namespace

Result<Bus> Bus::connect(const std::string& address, const std::stop_token& stop) {
    const Cancellation cancellation(stop);
    GError* failure = nullptr;
    Bus bus(g_dbus_connection_new_for_address_sync(
        address.c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, cancellation.get(), &failure));
    if (!bus.mConnection) {
        const GLibHolder<GError> owner(failure);
        return busError(failure, "connect");
    }
    return bus;
}

Result<std::string> Bus::call(const char* category, const char* method, const std::string& payload,
                              const CallLimits& limits) const {
    if (!isBusText(payload)) {
        return notBusText();
    }
    const Place place(category);
    const Cancellation cancellation(limits.stop);
    GError* failure = nullptr;
    const GLibHolder<GVariant> reply(g_dbus_connection_call_sync(
        mConnection.get(), serviceName, place.path, place.interface.c_str(), method,
        g_variant_new("(s)", payload.c_str()), G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE,
        static_cast<int>(limits.timeout.count()), cancellation.get(), &failure));
    if (!reply) {
        const GLibHolder<GError> owner(failure);
        return busError(failure, method);
    }
    const char* text = nullptr;
    g_variant_get(reply.get(), "(&s)", &text);
    const auto members = JsonMembers::parse(text);
    if (members && members->has("errorCode")) {
        Error error = refusalError(members->string("errorCode").value_or(""),
                                   members->string("errorText").value_or(""));
        error.reply = text;
        return error;
    }
    return std::string(text);
}

Failure Bus::post(const char* category, const char* method, const std::string& payload) const {
    if (!isBusText(payload)) {
        return notBusText();
    }
    const Place place(category);
    const GLibHolder<GDBusMessage> message(
        g_dbus_message_new_method_call(serviceName, place.path, place.interface.c_str(), method));
    g_dbus_message_set_body(message.get(), g_variant_new("(s)", payload.c_str()));
    g_dbus_message_set_flags(message.get(), G_DBUS_MESSAGE_FLAGS_NO_REPLY_EXPECTED);
    GError* failure = nullptr;
    if (g_dbus_connection_send_message(mConnection.get(), message.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE,
                                       nullptr, &failure) == FALSE ||
        g_dbus_connection_flush_sync(mConnection.get(), nullptr, &failure) == FALSE) {
        const GLibHolder<GError> owner(failure);
        return busError(failure, method);
    }
    return std::nullopt;
}

// Null when the daemon has no answer.
GLibHolder<GVariant> Bus::askDaemon(const char* method, GVariant* arguments, const char* replyType) const {
    return GLibHolder<GVariant>(g_dbus_connection_call_sync(
        mConnection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        arguments, G_VARIANT_TYPE(replyType), G_DBUS_CALL_FLAGS_NONE, daemonTimeoutMs, nullptr, nullptr));
}

bool Bus::serviceRuns() const {
    gboolean runs = FALSE;
    if (const auto reply = askDaemon("NameHasOwner", g_variant_new("(s)", serviceName), "(b)")) {
        g_variant_get(reply.get(), "(b)", &runs);
    }
    return runs != FALSE;
}

bool Bus::offersService() const {
    if (serviceRuns()) {
        return true;
    }
    const auto names = askDaemon("ListActivatableNames", nullptr, "(as)");
    if (!names) {
        return false;
    }
    const GLibHolder<GVariant> list(g_variant_get_child_value(names.get(), 0));
    GVariantIter iterator;
    g_variant_iter_init(&iterator, list.get());
    const char* name = nullptr;
    while (g_variant_iter_next(&iterator, "&s", &name) != FALSE) {
        if (g_str_equal(name, serviceName) != FALSE) {
            return true;
        }
    }
    return false;
}

} // namespace lectern
