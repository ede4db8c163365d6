// SPDX-License-Identifier: Apache-2.0
#include "client/lib/LateReply.h"

#include "base/Mutex.h"
#include "client/lib/BusMessages.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace lectern {

struct LateReply::Watch {
    explicit Watch(Bus::LateHandler lateHandler) : handler(std::move(lateHandler)) {}

    const Bus::LateHandler handler;
    uint32_t serial = 0;
    bool givenUp = false;
    GLibHolder<GDBusMessage> reply;
};

// All watches of one connection; owned by the connection.
struct LateReply::Watches {
    Mutex mutex; // guards the elements too
    std::vector<std::shared_ptr<Watch>> list GUARDED_BY(mutex);

    void remove(const std::shared_ptr<Watch>& watch) REQUIRES(mutex) { std::erase(list, watch); }
};

namespace {

constexpr char WATCHES_KEY[] = "lectern-late-replies";

} // namespace

// One filter for the connection's lifetime: when a filter is removed while it
// runs, a main loop releases its data, and a client may have none.
void LateReply::prepare(GDBusConnection* connection) {
    auto* watches = new Watches;
    g_object_set_data_full(G_OBJECT(connection), WATCHES_KEY, watches,
                           [](void* data) { delete static_cast<Watches*>(data); });
    g_dbus_connection_add_filter(connection, &LateReply::look, watches, nullptr);
}

LateReply::LateReply(const Bus& bus, Bus::LateHandler handler)
    : mConnection(bus.connection()),
      mWatches(*static_cast<Watches*>(g_object_get_data(G_OBJECT(bus.connection()), WATCHES_KEY))),
      mWatch(std::make_shared<Watch>(std::move(handler))) {
    const Lock lock(mWatches.mutex);
    mWatches.list.push_back(mWatch);
}

LateReply::~LateReply() {
    const Lock lock(mWatches.mutex);
    if (!mWatch->givenUp) {
        mWatches.remove(mWatch);
    }
}

void LateReply::send(const std::function<uint32_t()>& sendCall) {
    const Lock lock(mWatches.mutex);
    mWatch->serial = sendCall();
}

void LateReply::giveUp() {
    const Lock lock(mWatches.mutex);
    mWatch->givenUp = true;
    if (mWatch->reply) {
        finish(mConnection, *mWatch);
        mWatches.remove(mWatch);
    }
}

void LateReply::finish(GDBusConnection* connection, const Watch& watch) {
    const Bus bus(static_cast<GDBusConnection*>(g_object_ref(connection)));
    if (const Result<Reply> reply = readReply(watch.reply.get(), "")) {
        watch.handler(bus, *reply);
    }
}

GDBusMessage* LateReply::look(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                              void* data) {
    auto& watches = *static_cast<Watches*>(data);
    const uint32_t serial = incoming != FALSE ? g_dbus_message_get_reply_serial(message) : 0;
    if (serial == 0) {
        return message;
    }
    const Lock lock(watches.mutex);
    const auto found = std::find_if(watches.list.begin(), watches.list.end(),
                                    [serial](const auto& watch) { return watch->serial == serial; });
    if (found != watches.list.end()) {
        (*found)->reply.reset(static_cast<GDBusMessage*>(g_object_ref(message)));
        if ((*found)->givenUp) {
            finish(connection, **found);
            watches.list.erase(found);
        }
    }
    return message;
}

} // namespace lectern
