// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

// Modules are searched along LD_LIBRARY_PATH, which the loader reads at the start
// of a process. So set it to the empty modules' folder and restart the process.
int main(int argc, char** argv) {
    const char* path = std::getenv("LD_LIBRARY_PATH");
    const std::string before = path == nullptr ? "" : path;
    if (before.rfind(MODULE_DIR, 0) != 0) {
        const std::string with = before.empty() ? MODULE_DIR : MODULE_DIR ":" + before;
        setenv("LD_LIBRARY_PATH", with.c_str(), 1);
        execv("/proc/self/exe", argv);
        std::perror("/proc/self/exe");
        return 1;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
