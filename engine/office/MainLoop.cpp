// SPDX-License-Identifier: Apache-2.0
// The suite's main loop, with the program's turns in it.
#include "engine/office/OfficePrivate.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <thread>

namespace lectern::engine {
namespace {

using std::chrono::microseconds;

// The suite passes this limit to a turn when it has no timer to wait for.
constexpr microseconds NO_TIMER = std::chrono::seconds(5);
// In the middle of a call, the suite waits only for threads of its own.
constexpr microseconds NESTED_WAIT(200);

struct Loop {
    Office::Turn& turn;
    bool taken = false; // a turn is being taken
};

int takeTurn(void* data, int longest) {
    auto& loop = *static_cast<Loop*>(data);
    const microseconds limit(std::max(longest, 0));
    if (loop.taken) {
        std::this_thread::sleep_for(std::min(limit, NESTED_WAIT));
        return 0;
    }
    loop.taken = true;
    loop.turn.take(limit >= NO_TIMER ? Office::FOREVER : limit);
    loop.taken = false;
    return 0;
}

void wakeTurn(void* data) {
    static_cast<Loop*>(data)->turn.wake();
}

// The only turn of a program that ends with its work.
class OnlyTurn : public Office::Turn {
public:
    explicit OnlyTurn(const std::function<int()>& work) : mWork(work) {}

    void take(microseconds) override {
        const int result = mWork();
        std::fflush(nullptr);
        // The suite does not survive an ordinary exit.
        _exit(result);
    }
    void wake() override {}

private:
    const std::function<int()>& mWork;
};

} // namespace

void Office::run(Turn& turn) {
    Loop loop{turn};
    d().suite->runLoop(&takeTurn, &wakeTurn, &loop);
    _exit(1);
}

void Office::runAndExit(const std::function<int()>& work) {
    OnlyTurn turn(work);
    run(turn);
}

} // namespace lectern::engine
