// SPDX-License-Identifier: Apache-2.0
#include "modules/Singleton.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <set>
#include <thread>
#include <vector>

namespace {

std::atomic<int> gMade{0};
std::atomic<int> gDestroyed{0};

struct Counted {
    Counted() {
        // Takes long enough for the other threads to arrive during the
        // construction.
        for (int i = 0; i < 1000; i++) {
            std::this_thread::yield();
        }
        gMade++;
    }
    ~Counted() { gDestroyed++; }
    int value = 7;
};

TEST(Singleton, IsMadeOnceHoweverManyThreadsAskFirst) {
    constexpr int THREADS = 16;
    std::barrier together(THREADS);
    std::vector<Counted*> seen(THREADS);
    std::vector<std::thread> threads;
    for (Counted*& mine : seen) {
        threads.emplace_back([&together, &mine] {
            together.arrive_and_wait();
            mine = &Singleton<Counted>::Instance();
            EXPECT_EQ(mine->value, 7);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(gMade, 1);
    EXPECT_EQ(std::set<Counted*>(seen.begin(), seen.end()).size(), 1U);
}

struct EndsWithNotice {
    ~EndsWithNotice() { _Exit(3); }
};

TEST(SingletonDeathTest, OutlivesTheProcess) {
    EXPECT_EXIT(
        {
            Singleton<EndsWithNotice>::Instance();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

struct One {};
struct Other {};

TEST(Singleton, IsOneForEachType) {
    EXPECT_NE(static_cast<void*>(&Singleton<One>::Instance()),
              static_cast<void*>(&Singleton<Other>::Instance()));
    EXPECT_EQ(&Singleton<One>::Instance(), &Singleton<One>::Instance());
}

} // namespace
