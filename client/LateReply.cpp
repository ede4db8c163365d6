// SPDX-License-Identifier: Apache-2.0
#include "client/LateReply.h"

#include <mutex>
#include <optional>
#include <utility>

#include "client/BusMessages.h"

namespace lectern {

// Shared with the connection, on whose thread look() may still run when the
// filter has been removed.
struct LateReply::Watch {
    explicit Watch(Bus::LateHandler lateHandler) : handler(std::move(lateHandler)) {}

    const Bus::LateHandler handler;
    _GDBusConnection* connection = nullptr; // outlives its filters
    unsigned int filter = 0;
    std::mutex mutex; // guards what follows
    uint32_t serial = 0;
    bool givenUp = false;
    GLibHolder<GDBusMessage> reply;
};

LateReply::LateReply(const Bus& bus, Bus::LateHandler handler)
    : mWatch(std::make_shared<Watch>(std::move(handler))) {
    const std::lock_guard lock(mWatch->mutex);
    mWatch->connection = bus.connection();
    mWatch->filter =
        g_dbus_connection_add_filter(bus.connection(), &LateReply::look, new std::shared_ptr<Watch>(mWatch),
                                     [](void* watch) { delete static_cast<std::shared_ptr<Watch>*>(watch); });
}

LateReply::~LateReply() {
    const std::unique_lock lock(mWatch->mutex);
    if (!mWatch->givenUp) {
        g_dbus_connection_remove_filter(mWatch->connection, mWatch->filter);
    }
}

void LateReply::send(const std::function<uint32_t()>& sendCall) {
    const std::lock_guard lock(mWatch->mutex);
    mWatch->serial = sendCall();
}

// Takes the reply when there is one, and lets the filter go with it.
void LateReply::giveUp() {
    const std::lock_guard lock(mWatch->mutex);
    mWatch->givenUp = true;
    if (mWatch->reply) {
        finish(*mWatch, mWatch->reply.get());
    }
}

void LateReply::finish(const Watch& watch, GDBusMessage* message) {
    const Bus bus(static_cast<GDBusConnection*>(g_object_ref(watch.connection)));
    if (const Result<Reply> reply = readReply(message, "")) {
        watch.handler(bus, *reply);
    }
    g_dbus_connection_remove_filter(watch.connection, watch.filter);
}

GDBusMessage* LateReply::look(GDBusConnection* /*connection*/, GDBusMessage* message, gboolean incoming,
                              void* data) {
    const std::shared_ptr<Watch> watch = *static_cast<std::shared_ptr<Watch>*>(data);
    const std::lock_guard lock(watch->mutex);
    if (incoming != FALSE && watch->serial != 0 &&
        g_dbus_message_get_reply_serial(message) == watch->serial) {
        watch->reply.reset(static_cast<GDBusMessage*>(g_object_ref(message)));
        if (watch->givenUp) {
            finish(*watch, message);
        }
    }
    return message;
}

} // namespace lectern
