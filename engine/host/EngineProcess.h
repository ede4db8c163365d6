// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/TemporaryFolder.h"

#include <memory>

namespace lectern::engine {

// A process of the engine program, the fork server or an engine, with its socket and
// folder. It is identified by its pidfd, which stays right when the pid is reused or
// when the host itself waits for children. Not thread-safe except for pidfd() and
// hasEnded().
class EngineProcess {
public:
    // Starts the fork server, with its end of a socket pair for requests. Returns null
    // on failure and writes the reason to standard error.
    static std::unique_ptr<EngineProcess> spawn(const LaunchSettings& settings);
    // Takes over an engine that the fork server made; its folder is in the fork
    // server's, which lives at least as long.
    EngineProcess(FileDescriptor pidfd, FileDescriptor socket, std::unique_ptr<TemporaryFolder> folder,
                  std::shared_ptr<TemporaryFolder> outerFolder);
    // Kills the process if it runs, waits for its end and removes its folder.
    ~EngineProcess();
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;

    // This side's end of the socket pair. Call once.
    FileDescriptor takeSocket();
    const std::shared_ptr<TemporaryFolder>& folder() const { return mFolder; }
    bool isForkServer() const { return mOuterFolder == nullptr; }

    // Becomes readable when the process ends. Stays owned by this object.
    int pidfd() const { return mPidfd.get(); }
    bool hasEnded() const;

    // Ends the connection, on which a working engine ends by itself.
    void hangUp();
    // Sends SIGKILL and shuts the connection down for all its holders.
    void kill();

private:
    FileDescriptor mPidfd;
    FileDescriptor mSocket; // until takeSocket
    FileDescriptor mHangUp; // duplicate of the socket, to shut it down
    std::shared_ptr<TemporaryFolder> mOuterFolder;
    std::shared_ptr<TemporaryFolder> mFolder;
};

} // namespace lectern::engine
