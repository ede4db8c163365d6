// SPDX-License-Identifier: Apache-2.0
// lectern-engine: opens one document and paints it for the service that started
// this process. Confines itself before it touches the document.

#include "engine/process/EngineLoop.h"
#include "engine/process/Lifeline.h"
#include "engine/process/ResourceLimits.h"
#include "engine/process/Sandbox.h"
#include "engine/protocol/Inherited.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    using namespace lectern::engine;
    if (argc != 2 || fcntl(ENGINE_SOCKET, F_SETFD, FD_CLOEXEC) != 0) {
        std::fprintf(stderr, "%s is started by the service, not by hand\n", argv[0]);
        return 2;
    }
    const std::string folder = argv[1];
    limitResources();
    const Confinement confinement = enterSandbox(folder);
    if (confinement == Confinement::Failed) {
        _exit(1);
    }
    startLifeline(ENGINE_SOCKET, folder);
    runEngine(ENGINE_SOCKET, folder, confinement == Confinement::Complete);
    _exit(1);
}
