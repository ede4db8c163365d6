// SPDX-License-Identifier: Apache-2.0
// The tests run in an IPC namespace of their own, in which nothing else sends,
// and find this build's keeper. No bus of the machine is visible to them.
#include "client/command/Interrupt.h"
#include "client/lib/IpcNamespace.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!testing::GTEST_FLAG(list_tests) && !lectern::isolateIpc()) {
        std::fputs("The tests need an IPC namespace of their own.\n", stderr);
        return EXIT_FAILURE;
    }
    const lectern::Interrupt blocked; // as in the command, before any thread starts
    setenv("LECTERN_KEEPER", LECTERN_KEEPER_PROGRAM, 1);
    setenv("LECTERN_SERVICE", "/bin/false", 1);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    unsetenv("XDG_RUNTIME_DIR");
    return RUN_ALL_TESTS();
}
