// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/TemporaryFolder.h"

#include <memory>

namespace lectern::engine {

// One engine process and what belongs to it. Known by its pidfd, so that
// neither a reused number nor a host that waits for children itself can
// mislead. Not thread-safe, but for pidfd() and hasEnded().
class EngineProcess {
public:
    // Starts the program with its end of a socket pair. Null when that fails;
    // the reason goes to standard error.
    static std::unique_ptr<EngineProcess> spawn(const LaunchSettings& settings);
    // Kills what still runs, waits for it, removes its folder.
    ~EngineProcess();
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;

    // This side's end of the socket pair, for the connection. Once.
    FileDescriptor takeSocket();

    // Readable once the process has ended.
    int pidfd() const { return mPidfd.get(); }
    bool hasEnded() const;

    // Ends the connection, at which an engine in good health ends itself.
    void hangUp();
    // SIGKILL, and the end of the connection, whoever else may hold it.
    void kill();

private:
    EngineProcess(FileDescriptor pidfd, FileDescriptor socket, std::unique_ptr<TemporaryFolder> folder);

    FileDescriptor mPidfd;
    FileDescriptor mSocket; // given away by takeSocket
    FileDescriptor mHangUp; // the same socket, to shut it down
    std::unique_ptr<TemporaryFolder> mFolder;
};

} // namespace lectern::engine
