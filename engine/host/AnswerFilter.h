// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <cstdint>

namespace lectern::engine {

// Drops everything that an engine sends but the answer to the call that waits for it.
// GLib would answer calls of the engine, and keep the answers in memory until it reads
// them. An engine that sends more than a few such messages is cut off.
//
// Runs on GLib's thread, for one call at a time. REQUIRES: lives until the connection is
// closed and finished with.
class AnswerFilter {
public:
    // Messages that are only dropped. An engine of ours sends none.
    static constexpr int TOLERATED = 16;

    // Call before the connection processes its first message.
    void install(GDBusConnection* connection);

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                gpointer self);
    bool isAwaited(GDBusMessage* message);
    void noteUnasked(GDBusConnection* connection);

    std::uint32_t mAwaited = 0; // serial of the call that waits for its answer; 0 for none
    int mUnasked = 0;
};

} // namespace lectern::engine
