// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Portal.h"

#include <algorithm>
#include <utility>

namespace lectern::viewer {

namespace {

constexpr const char* BUS_NAME = "org.freedesktop.portal.Desktop";
constexpr const char* OBJECT_PATH = "/org/freedesktop/portal/desktop";
constexpr guint32 RESPONSE_GRANTED = 0;

} // namespace

const char* Portal::newToken() {
    mToken = "lectern" + std::to_string(g_random_int());
    return mToken.c_str();
}

void Portal::request(const char* name, const char* method, GVariant* parameters, GUnixFDList* descriptors,
                     Done done) {
    forget();
    mDone = std::move(done);
    const GLibHolder<GVariant> sunk(g_variant_ref_sink(parameters));
    mBus.reset(
        g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr)); // the application's, so it does not wait
    if (mBus == nullptr) {
        end(Answer::NoPortal, nullptr);
        return;
    }
    listen();
    const std::string interface = std::string("org.freedesktop.portal.") + name;
    g_dbus_connection_call_with_unix_fd_list(mBus.get(), BUS_NAME, OBJECT_PATH, interface.c_str(), method,
                                             sunk.get(), G_VARIANT_TYPE("(o)"), G_DBUS_CALL_FLAGS_NONE, -1,
                                             descriptors, mPending.get(), asyncDone<&Portal::called>, this);
}

// The portal answers from an object whose path follows from this process and the token.
void Portal::listen() {
    std::string sender = g_dbus_connection_get_unique_name(mBus.get()) + 1;
    std::replace(sender.begin(), sender.end(), '.', '_');
    const std::string path = std::string(OBJECT_PATH) + "/request/" + sender + "/" + mToken;
    mSubscription = g_dbus_connection_signal_subscribe(mBus.get(), BUS_NAME, "org.freedesktop.portal.Request",
                                                       "Response", path.c_str(), nullptr,
                                                       G_DBUS_SIGNAL_FLAGS_NONE, onResponse, this, nullptr);
}

void Portal::called(GObject* bus, GAsyncResult* result) {
    const GLibHolder<GVariant> reply(
        g_dbus_connection_call_with_unix_fd_list_finish(G_DBUS_CONNECTION(bus), nullptr, result, nullptr));
    if (reply == nullptr) {
        end(Answer::NoPortal, nullptr);
    }
}

void Portal::onResponse(GDBusConnection* /*bus*/, const char* /*sender*/, const char* /*path*/,
                        const char* /*interface*/, const char* /*signal*/, GVariant* parameters, void* self) {
    guint32 response = 0;
    GLibHolder<GVariant> results;
    g_variant_get(parameters, "(u@a{sv})", &response, static_cast<GVariant**>(out(results)));
    static_cast<Portal*>(self)->end(response == RESPONSE_GRANTED ? Answer::Granted : Answer::Refused,
                                    results.get());
}

void Portal::end(Answer answer, GVariant* results) {
    const Done done = std::move(mDone);
    forget();
    if (done) {
        done(answer, results);
    }
}

void Portal::forget() {
    mPending.giveUp();
    mDone = {};
    if (mSubscription != 0) {
        g_dbus_connection_signal_unsubscribe(mBus.get(), mSubscription);
        mSubscription = 0;
    }
}

} // namespace lectern::viewer
