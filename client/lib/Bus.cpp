// SPDX-License-Identifier: Apache-2.0
#include "client/lib/BusMessages.h"
#include "client/lib/LateReply.h"
#include <lectern/Bus.h>

#include <optional>
#include <utility>

namespace lectern {

namespace {

using Clock = std::chrono::steady_clock;
constexpr unsigned int BETWEEN_PROGRESS_MS = 250;

// A GCancellable that is cancelled when a stop is requested, for the duration of a call.
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

// A call that its thread waits for in its own main context, so that it can
// meanwhile report to the caller how long it has taken.
class PendingCall {
public:
    explicit PendingCall(const CallLimits& limits)
        : mLimits(limits), mContext(g_main_context_new()), mStart(Clock::now()) {
        g_main_context_push_thread_default(mContext.get());
    }
    ~PendingCall() { g_main_context_pop_thread_default(mContext.get()); }
    PendingCall(const PendingCall&) = delete;
    PendingCall& operator=(const PendingCall&) = delete;

    // Sends the message and returns its serial number.
    uint32_t send(GDBusConnection* connection, GDBusMessage* message, GCancellable* cancellable) {
        uint32_t serial = 0;
        g_dbus_connection_send_message_with_reply(connection, message, G_DBUS_SEND_MESSAGE_FLAGS_NONE,
                                                  static_cast<int>(mLimits.timeout.count()), &serial,
                                                  cancellable, &PendingCall::ended, this);
        return serial;
    }

    // Returns the reply; null with an error in `failure`.
    GLibHolder<GDBusMessage> wait(GDBusConnection* connection, GError** failure) {
        const GLibHolder<GSource> ticks(g_timeout_source_new(BETWEEN_PROGRESS_MS));
        if (mLimits.onProgress) {
            g_source_set_callback(ticks.get(), &PendingCall::tick, this, nullptr);
            g_source_attach(ticks.get(), mContext.get());
        }
        while (!mResult) {
            g_main_context_iteration(mContext.get(), TRUE);
        }
        g_source_destroy(ticks.get());
        return GLibHolder<GDBusMessage>(
            g_dbus_connection_send_message_with_reply_finish(connection, mResult.get(), failure));
    }

private:
    static void ended(GObject* /*connection*/, GAsyncResult* result, void* self) {
        static_cast<PendingCall*>(self)->mResult.reset(static_cast<GAsyncResult*>(g_object_ref(result)));
    }
    static gboolean tick(void* self) {
        const auto* call = static_cast<PendingCall*>(self);
        call->mLimits.onProgress(
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - call->mStart));
        return G_SOURCE_CONTINUE;
    }

    const CallLimits& mLimits;
    GLibHolder<GMainContext> mContext;
    const Clock::time_point mStart;
    GLibHolder<GAsyncResult> mResult;
};

bool isGivenUp(const Error& error) {
    return error.kind == Error::Kind::Cancelled || error.kind == Error::Kind::TimedOut;
}

} // namespace

Bus::Bus(_GDBusConnection* owned) : mConnection(owned, GLibRelease()) {}

Result<Bus> Bus::connect(const std::string& address, const std::stop_token& stop) {
    const Cancellation cancellation(stop);
    GLibHolder<GError> failure;
    GDBusConnection* connection = g_dbus_connection_new_for_address_sync(
        address.c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, cancellation.get(), out(failure));
    if (connection == nullptr) {
        return busError(failure.get(), "connect");
    }
    LateReply::prepare(connection);
    return Bus(connection);
}

Result<std::string> Bus::call(const char* category, const char* method, const std::string& payload,
                              const CallLimits& limits) const {
    Result<Reply> reply = request(category, method, payload, limits);
    if (!reply) {
        return reply.error();
    }
    return std::move(reply->text);
}

Result<Reply> Bus::request(const char* category, const char* method, const std::string& payload,
                           const CallLimits& limits, LateHandler late) const {
    const auto message = makeCall(category, method, payload, SERVICE_NAME);
    if (!message) {
        return notBusText();
    }
    const Cancellation cancellation(limits.stop);
    std::optional<LateReply> lateReply;
    PendingCall pending(limits);
    const auto send = [&] { return pending.send(connection(), message.get(), cancellation.get()); };
    if (late) {
        lateReply.emplace(*this, std::move(late)).send(send);
    } else {
        send();
    }
    GLibHolder<GError> failure;
    const auto reply = pending.wait(connection(), out(failure));
    if (reply) {
        return readReply(reply.get(), method);
    }
    Error error = busError(failure.get(), method);
    if (lateReply && isGivenUp(error)) {
        lateReply->giveUp();
    }
    return error;
}

Failure Bus::post(const char* category, const char* method, const std::string& payload,
                  const std::string& destination) const {
    const auto message = makeCall(category, method, payload, destination);
    if (!message) {
        return notBusText();
    }
    g_dbus_message_set_flags(message.get(),
                             static_cast<GDBusMessageFlags>(G_DBUS_MESSAGE_FLAGS_NO_REPLY_EXPECTED |
                                                            G_DBUS_MESSAGE_FLAGS_NO_AUTO_START));
    GLibHolder<GError> failure;
    if (g_dbus_connection_send_message(connection(), message.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       out(failure)) == FALSE) {
        return busError(failure.get(), method);
    }
    return std::nullopt;
}

Failure Bus::flush() const {
    GLibHolder<GError> failure;
    if (g_dbus_connection_flush_sync(connection(), nullptr, out(failure)) == FALSE) {
        return busError(failure.get(), "flush");
    }
    return std::nullopt;
}

bool Bus::isClosed() const {
    return g_dbus_connection_is_closed(connection()) != FALSE;
}

bool Bus::serviceRuns(const std::string& name) const {
    gboolean runs = FALSE;
    if (const auto reply =
            askDaemon(connection(), "NameHasOwner", g_variant_new("(s)", name.c_str()), "(b)")) {
        g_variant_get(reply.get(), "(b)", &runs);
    }
    return runs != FALSE;
}

bool Bus::offersService() const {
    if (serviceRuns()) {
        return true;
    }
    const auto names = askDaemon(connection(), "ListActivatableNames", nullptr, "(as)");
    if (!names) {
        return false;
    }
    const GLibHolder<GVariant> list(g_variant_get_child_value(names.get(), 0));
    GVariantIter iterator;
    g_variant_iter_init(&iterator, list.get());
    const char* name = nullptr;
    while (g_variant_iter_next(&iterator, "&s", &name) != FALSE) {
        if (g_str_equal(name, SERVICE_NAME) != FALSE) {
            return true;
        }
    }
    return false;
}

} // namespace lectern
