// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "base/Packet.h"
#include "engine/office/Office.h"
#include "engine/process/EngineLoop.h"

#include <memory>
#include <string>
#include <vector>

namespace lectern::engine {

// The fork server's turns in the suite's main loop: it forks an engine for each of the
// service's requests (engine/protocol/ForkMessages.h). In a forked process, the later
// turns are those of its EngineLoop.
//
// The process has one thread until the fork, because a fork has only a copy of the
// thread that made it.
class ForkLoop : public Office::Turn {
public:
    // Takes ownership of the socket. `folder` is the fork server's; it is emptied
    // when the service closes its end of the socket, and the process ends.
    ForkLoop(Office& office, int socket, std::string folder);

    void take(std::chrono::microseconds longest) override;
    void wake() override;

private:
    void handleRequest();
    void forkEngine(Packet request);
    [[noreturn]] void hangUp();
    bool becomeEngine(Packet request);

    Office& mOffice;
    FileDescriptor mRequests;
    const std::string mFolder;
    const std::vector<std::string> mReadPaths; // the suite's
    bool mPreparing = true;                    // something is left to prepare
    std::chrono::microseconds mPause;          // before the next step of preparing
    std::unique_ptr<EngineLoop> mEngine;       // in a forked process
};

} // namespace lectern::engine
