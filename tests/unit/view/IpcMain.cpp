// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sched.h>
#include <unistd.h>

#include <cstdio>

// Segments and queues of the tests are in new namespaces and are removed with
// the process. Without root this needs a user namespace, which must be entered
// before there are threads.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (geteuid() != 0 && unshare(CLONE_NEWUSER) != 0) {
        std::perror("unshare");
        return 1;
    }
    if (unshare(CLONE_NEWIPC) != 0) {
        std::perror("unshare");
        return 1;
    }
    return RUN_ALL_TESTS();
}
