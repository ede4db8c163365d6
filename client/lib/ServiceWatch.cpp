// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ServiceWatch.h"

#include "base/Mutex.h"
#include "client/lib/BusMessages.h"

#include <cstring>
#include <utility>

namespace lectern {

struct ServiceWatch::Watch {
    Watch(std::string uniqueName, std::function<void()> gone)
        : name(std::move(uniqueName)), onGone(std::move(gone)) {}

    const std::string name;
    const std::function<void()> onGone;
    Mutex mutex; // held while onGone runs
    bool told GUARDED_BY(mutex) = false;
    uint32_t question GUARDED_BY(mutex) = 0; // serial number of the call NameHasOwner

    void tell() {
        const Lock lock(mutex);
        if (!std::exchange(told, true)) {
            onGone();
        }
    }

    // Whether the message is "NameOwnerChanged" for this name, without a new owner.
    bool isEnd(GDBusMessage* message) const {
        const char* member = g_dbus_message_get_member(message);
        const char* sender = g_dbus_message_get_sender(message);
        GVariant* body = g_dbus_message_get_body(message);
        if (g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_SIGNAL || member == nullptr ||
            sender == nullptr || body == nullptr || std::strcmp(member, "NameOwnerChanged") != 0 ||
            std::strcmp(sender, "org.freedesktop.DBus") != 0 ||
            g_variant_is_of_type(body, G_VARIANT_TYPE("(sss)")) == FALSE) {
            return false;
        }
        const char* changed = nullptr;
        const char* before = nullptr;
        const char* now = nullptr;
        g_variant_get(body, "(&s&s&s)", &changed, &before, &now);
        return name == changed && *now == '\0';
    }

    // Whether the message answers the question with no.
    bool isNo(GDBusMessage* message) {
        GVariant* body = g_dbus_message_get_body(message);
        gboolean owned = TRUE;
        if (g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_RETURN &&
            body != nullptr && g_variant_is_of_type(body, G_VARIANT_TYPE("(b)")) != FALSE) {
            const Lock lock(mutex);
            if (g_dbus_message_get_reply_serial(message) == question) {
                g_variant_get(body, "(b)", &owned);
            }
        }
        return owned == FALSE;
    }

    static GDBusMessage* look(GDBusConnection* /*connection*/, GDBusMessage* message, gboolean incoming,
                              void* data) {
        Watch& watch = **static_cast<std::shared_ptr<Watch>*>(data);
        if (incoming != FALSE && (watch.isEnd(message) || watch.isNo(message))) {
            watch.tell();
        }
        return message;
    }
};

ServiceWatch::ServiceWatch(const Bus& bus, const std::string& uniqueName, std::function<void()> onGone)
    : mBus(bus), mWatch(std::make_shared<Watch>(uniqueName, std::move(onGone))),
      mRule("type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg0='" + uniqueName +
            "'") {
    mFilter =
        g_dbus_connection_add_filter(mBus.connection(), &Watch::look, new std::shared_ptr<Watch>(mWatch),
                                     [](void* watch) { delete static_cast<std::shared_ptr<Watch>*>(watch); });
    // The answers are not awaited, because the first picture would wait for them, too.
    bool sent = false;
    {
        const Lock lock(mWatch->mutex); // which look() needs to know the question
        postToDaemon(mBus.connection(), "AddMatch", mRule);
        mWatch->question = postToDaemon(mBus.connection(), "NameHasOwner", uniqueName);
        sent = mWatch->question != 0;
    }
    if (!sent) {
        mWatch->tell();
    }
}

ServiceWatch::~ServiceWatch() {
    {
        const Lock lock(mWatch->mutex);
        mWatch->told = true;
    }
    g_dbus_connection_remove_filter(mBus.connection(), mFilter);
    postToDaemon(mBus.connection(), "RemoveMatch", mRule);
}

} // namespace lectern
