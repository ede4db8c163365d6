// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <stop_token>
#include <thread>

namespace lectern {

// Turns SIGINT, SIGTERM and SIGHUP into a stop request, so that the command
// ends normally and its destructors run. A second signal ends the process at
// once.
//
// The constructor blocks the signals; it must run before the first thread
// starts. watch() then starts the thread that waits for them.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    void watch();
    std::stop_token token() const { return mStop.get_token(); }
    // The number of the signal received; 0 before one.
    int signal() const { return mSignal; }

private:
    std::stop_source mStop;
    std::atomic<int> mSignal{0};
    std::jthread mThread;
};

// Ends the process by the default action of the signal, so that callers see why
// it ended.
[[noreturn]] void dieOfSignal(int number);

} // namespace lectern
