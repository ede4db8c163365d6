// SPDX-License-Identifier: Apache-2.0
// lectern-view: reads documents in a window.
#include "client/viewer/Application.h"

int main(int argc, char** argv) {
    // Before anything starts a thread: where no session bus has the service, this process
    // starts one of its own, in a namespace of shared memory that both are alone in.
    lectern_service_isolate(nullptr);
    return lectern::viewer::Application().run(argc, argv);
}
