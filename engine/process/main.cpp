// SPDX-License-Identifier: Apache-2.0
// lectern-engine: the fork server, which starts the office suite once, and the engines
// that it forks, each of which opens one document and paints it for the service that
// started this process. Confines itself before it starts the suite.

#include "engine/process/FaultSignals.h"
#include "engine/process/ForkLoop.h"
#include "engine/process/ResourceLimits.h"
#include "engine/process/Sandbox.h"
#include "engine/protocol/Inherited.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>

int main(int argc, char** argv) {
    using namespace lectern::engine;
    if (argc != 2 || fcntl(ENGINE_SOCKET, F_SETFD, FD_CLOEXEC) != 0) {
        std::fprintf(stderr, "%s is started by the service, not by hand\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    limitForkServer();
    if (!enterSandbox(folder)) {
        _exit(1);
    }
    // The service kills a fork server that does not answer. Without a service, one
    // whose start hangs ends here.
    alarm(60);
    const FaultSignals signals;
    const std::unique_ptr<Office> office = Office::start(folder + "/profile");
    alarm(0);
    if (!office) {
        _exit(1);
    }
    signals.restore();
    ForkLoop loop(*office, ENGINE_SOCKET, folder);
    office->run(loop);
}
