// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <stop_token>
#include <thread>

namespace lectern {

// Turns SIGINT, SIGTERM and SIGHUP into a stop request, so that the command
// ends by its own destructors. A second one ends the process at once.
//
// In two steps, because the signals must be blocked before the first thread
// starts, and a thread watches for them: the constructor blocks, watch() starts
// the thread.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    void watch();
    std::stop_token token() const { return mStop.get_token(); }
    // The signal that came, or 0.
    int signal() const { return mSignal; }

private:
    std::stop_source mStop;
    std::atomic<int> mSignal{0};
    std::jthread mThread;
};

// Ends the process as the signal would have, so that callers see why it ended.
[[noreturn]] void dieOfSignal(int number);

} // namespace lectern
