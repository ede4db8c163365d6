// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "base/GLibHolder.h"
#include "engine/host/AnswerFilter.h"
#include "engine/host/Export.h"

#include <EngineProtocol.h>
#include <gio/gio.h>

#include <memory>

namespace lectern::engine {

// The typed connection to one engine. Works without a running main loop.
class LECTERN_ENGINE_EXPORT Connection {
public:
    // Connects to the engine at the other end of the socket and waits for its
    // answer. Returns null when there is no engine or it ends.
    static std::unique_ptr<Connection> make(FileDescriptor socket);
    // REQUIRES: the socket has been shut down, or its other end is closed.
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // After a call has found the connection closed: whether the engine sent what is no
    // message, and not ended it. Waits for GLib's report.
    bool wasBroken();

    LecternIpcProcess* process() const { return mProcess.get(); }
    LecternIpcWord* word() const { return mWord.get(); }
    LecternIpcSheet* sheet() const { return mSheet.get(); }
    LecternIpcSlide* slide() const { return mSlide.get(); }

private:
    Connection();
    bool open(FileDescriptor socket);
    void awaitEnd();
    static void noteEnd(GDBusConnection* bus, gboolean vanished, GError* error, gpointer self);

    const GLibHolder<GMainContext> mContext; // where it reports its end, to nobody else's loop
    AnswerFilter mFilter;                    // for as long as mBus
    GLibHolder<GDBusConnection> mBus;
    GLibHolder<LecternIpcProcess> mProcess;
    GLibHolder<LecternIpcWord> mWord;
    GLibHolder<LecternIpcSheet> mSheet;
    GLibHolder<LecternIpcSlide> mSlide;
    bool mClosed = false;
    bool mBroken = false;
};

} // namespace lectern::engine
