// SPDX-License-Identifier: Apache-2.0
// The tests run in their own IPC namespace, where no other process sends, and
// use this build's keeper. They cannot see the machine's buses.
#include "client/command/Interrupt.h"
#include "client/lib/IpcNamespace.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

// Read by the AddressSanitizer, which otherwise mistakes the end of a cancelled thread for a
// fault: it looks at the stack of a function that the thread has left without returning.
extern "C" [[gnu::visibility("default")]] const char* __asan_default_options() {
    return "use_sigaltstack=0";
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!testing::GTEST_FLAG(list_tests) && !lectern::isolateIpc()) {
        std::fputs("The tests need an IPC namespace of their own.\n", stderr);
        return EXIT_FAILURE;
    }
    const lectern::Interrupt blocked; // as in the command: before the first thread
    setenv("LECTERN_KEEPER", LECTERN_KEEPER_PROGRAM, 1);
    setenv("LECTERN_SERVICE", "/bin/false", 1);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    unsetenv("XDG_RUNTIME_DIR");
    return RUN_ALL_TESTS();
}
