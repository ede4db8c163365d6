// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include <lectern/Bus.h>

#include <gio/gio.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace lectern {

// Sees to the reply of a call that nobody waits for any more: an open that was
// cancelled, say, whose document must still be destroyed. It looks at what comes
// in on the connection, before GDBus drops the reply as unwanted, and ends with
// the reply or with the connection.
class LateReply {
public:
    // Makes a new connection fit for this; once, before any call on it.
    static void prepare(GDBusConnection* connection);

    // The bus must outlive the object.
    LateReply(const Bus& bus, Bus::LateHandler handler);
    // Nothing is seen to any more, unless the call has been given up.
    ~LateReply();
    LateReply(const LateReply&) = delete;
    LateReply& operator=(const LateReply&) = delete;

    // The call that is waited for. No reply is looked at while it is sent, so
    // that none is missed: the function sends and gives the call's serial number.
    void send(const std::function<uint32_t()>& sendCall);
    // From here on the reply is the handler's, also when it has come already.
    void giveUp();

private:
    struct Watch;
    struct Watches;
    static void finish(GDBusConnection* connection, const Watch& watch);
    static GDBusMessage* look(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                              void* watches);

    GDBusConnection* mConnection; // the bus's
    Watches& mWatches;
    std::shared_ptr<Watch> mWatch;
};

} // namespace lectern
