// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include <lectern/Bus.h>

#include <gio/gio.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace lectern {

// Handles the reply of a call that was given up, such as a cancelled open whose
// document must still be destroyed. Sees the connection's messages before GDBus
// drops the reply as unexpected. Ends with the reply or with the connection.
class LateReply {
public:
    // Prepares a new connection; call once, before any other call on it.
    static void prepare(GDBusConnection* connection);

    // The bus must outlive the object.
    LateReply(const Bus& bus, Bus::LateHandler handler);
    // Stops watching, unless the call has been given up.
    ~LateReply();
    LateReply(const LateReply&) = delete;
    LateReply& operator=(const LateReply&) = delete;

    // Sends the call to watch for. `sendCall` sends it and returns its serial
    // number; no reply is examined meanwhile, so none is missed.
    void send(const std::function<uint32_t()>& sendCall);
    // Gives the reply to the handler from now on, even if it has already come.
    void giveUp();

private:
    struct Watch;
    struct Watches;
    static void finish(GDBusConnection* connection, const Watch& watch);
    static GDBusMessage* look(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                              void* watches);

    GDBusConnection* mConnection; // owned by the bus
    Watches& mWatches;
    std::shared_ptr<Watch> mWatch;
};

} // namespace lectern
