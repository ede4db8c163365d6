// SPDX-License-Identifier: Apache-2.0
#include "client/command/Interrupt.h"

#include <pthread.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace lectern {

namespace {

// Sent only to the watching thread, to end it.
constexpr int END_OF_WATCH = SIGUSR1;

sigset_t watched() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, END_OF_WATCH}) {
        sigaddset(&signals, number);
    }
    return signals;
}

} // namespace

Interrupt::Interrupt() {
    const sigset_t signals = watched();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

void Interrupt::watch() {
    mThread = std::jthread([this] {
        const sigset_t signals = watched();
        int number = 0;
        while (sigwait(&signals, &number) == 0 && number != END_OF_WATCH) {
            if (mSignal != 0) {
                dieOfSignal(number);
            }
            mSignal = number;
            mStop.request_stop();
        }
    });
}

Interrupt::~Interrupt() {
    if (mThread.joinable()) {
        pthread_kill(mThread.native_handle(), END_OF_WATCH);
        mThread.join();
    }
}

void dieOfSignal(int number) {
    std::signal(number, SIG_DFL);
    sigset_t alone;
    sigemptyset(&alone);
    sigaddset(&alone, number);
    pthread_sigmask(SIG_UNBLOCK, &alone, nullptr);
    kill(getpid(), number);
    _exit(EXIT_FAILURE);
}

} // namespace lectern
