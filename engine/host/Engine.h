// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "engine/host/Connection.h"
#include "engine/host/Export.h"
#include "engine/host/Waiting.h"
#include "engine/host/Watchdog.h"
#include "modules/ModuleResults.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace lectern::engine {

// A started engine and the connection to it. Use from one thread at a time.
// When its process has ended or has missed a deadline, it stays lost.
class LECTERN_ENGINE_EXPORT Engine {
public:
    // Takes over a process and connects to it. Returns null on failure, with
    // MODULE_NO_ENGINE or MODULE_TIMED_OUT in `result`.
    static std::unique_ptr<Engine> start(std::unique_ptr<EngineProcess> process, TimePoint deadline,
                                         std::int32_t& result);
    // Ends the process; returns when it has ended and its folder is removed.
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    bool isAlive() const;
    // Whether a call has found the process lost.
    bool isLost() const { return mLost; }
    // Ends the process; it is lost then.
    void kill();
    // Ends the process too, but any thread may call it, also while another uses the engine:
    // its call then finds the engine lost.
    void abort();
    // The folder that it may write to; it goes with the process.
    const std::string& folder() const { return mFolder; }

    // Runs one call on the connection, send(GError**), which must have no time limit
    // of its own. Returns MODULE_OK when the engine answered, MODULE_TIMED_OUT (the
    // engine was killed) or MODULE_ENGINE_LOST, and MODULE_FAILED for an invalid
    // answer, after which the engine is lost if nothing more can be read from it, or when
    // this process has too few file descriptors.
    template<class Send>
    std::int32_t call(TimePoint deadline, Send send) {
        if (const std::int32_t refused = beginCall(deadline); refused != MODULE_OK) {
            return refused;
        }
        GLibHolder<GError> error;
        const Waiting waiting;
        const bool answered = send(out(error)) != FALSE;
        return endCall(answered, error.get());
    }

    LecternIpcProcess* process() const { return mConnection->process(); }
    LecternIpcWord* word() const { return mConnection->word(); }
    LecternIpcSheet* sheet() const { return mConnection->sheet(); }
    LecternIpcSlide* slide() const { return mConnection->slide(); }

private:
    Engine(Watchdog::Handle handle, std::string folder)
        : mHandle(std::move(handle)), mFolder(std::move(folder)) {}

    std::int32_t beginCall(TimePoint deadline);
    std::int32_t endCall(bool answered, const GError* error);

    const Watchdog::Handle mHandle;
    const std::string mFolder;
    bool mLost = false;
    std::unique_ptr<Connection> mConnection;
};

} // namespace lectern::engine
