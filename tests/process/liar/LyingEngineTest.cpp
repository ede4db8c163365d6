// SPDX-License-Identifier: Apache-2.0
// Engines that lie in every field of every answer, and send what nobody asked for, do
// not harm the service. LECTERN_TEST_LIES sets the number of sessions.
#include "service/Registry.h"
#include "tests/process/liar/Session.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>

namespace lectern::test {
namespace {

constexpr int USUAL_SESSIONS = 20;
constexpr std::chrono::seconds LONGEST_SESSION(60);

class LyingEngineTest : public testing::Test {
protected:
    LyingEngineTest() {
        char name[] = "/tmp/lectern-liar-XXXXXX";
        mFolder = mkdtemp(name);
    }
    ~LyingEngineTest() override { std::filesystem::remove_all(mFolder); }

    static std::string bytesOf(unsigned seed) {
        std::mt19937 random(seed);
        std::string bytes(4096, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        return bytes;
    }

    std::string mFolder;
};

TEST_F(LyingEngineTest, SessionsWithLyingEnginesEndInTimeAndLeaveNothing) {
    startServiceWithLiars(LYING_ENGINE);
    const char* const wanted = std::getenv("LECTERN_TEST_LIES");
    const int sessions = wanted != nullptr ? std::atoi(wanted) : USUAL_SESSIONS;
    for (int seed = 1; seed <= sessions; ++seed) {
        const auto start = std::chrono::steady_clock::now();
        runSession(mFolder, bytesOf(static_cast<unsigned>(seed)));
        const RegistryLock lock;
        EXPECT_TRUE(gDocuments.empty()) << "seed " << seed;
        EXPECT_LT(std::chrono::steady_clock::now() - start, LONGEST_SESSION) << "seed " << seed;
    }
    std::cerr << sessions << " sessions with lying engines\n";
}

} // namespace
} // namespace lectern::test
