// SPDX-License-Identifier: Apache-2.0
// How signals end the service.
//
// A signal handler interrupts any code, which may hold any lock, so it must do
// very little. The handler of SIGTERM, SIGINT, SIGHUP and SIGQUIT only writes to a
// pipe. A thread of its own reads the pipe and acts at once, also while the main
// thread waits for a document to open. After a fault, no other thread can be
// relied on: the handler itself logs, removes the queue and ends the process.
// Logging is not safe in a handler, so an alarm ends the process if that hangs.
#pragma once

#include <pthread.h>

// The handler of signals that end the process at once. The queue is removed. The
// exit status is the signal's number, but 0 for SIGHUP and SIGQUIT.
void handle_signal(int signal);
// The handler of SIGTERM: requests an orderly stop.
void term_handler(int signal);

// Installs handle_signal for SIGINT, SIGHUP, SIGQUIT, SIGTERM, SIGABRT, SIGILL,
// SIGFPE, SIGBUS and SIGSEGV. Ignores SIGPIPE.
void installSignalHandlers();
// Replaces handle_signal by term_handler for SIGTERM. REQUIRES: g_mainloop exists.
void installTermHandler();

// The thread that acts on the signals: it ends the process, or makes the default
// main loop quit.
class SignalThread {
public:
    SignalThread() = default;
    // Ends the thread and waits for it. Call it and start() on the main loop's thread.
    ~SignalThread();
    SignalThread(const SignalThread&) = delete;
    SignalThread& operator=(const SignalThread&) = delete;

    // Starts the thread. Returns 0 or an error number. Call it before the handlers
    // are installed. Only one object per process may be started at a time.
    [[nodiscard]] int start();

private:
    static void* run(void* thread);

    pthread_t mThread{};
    int mReadEnd = -1;  // of the pipe that the handlers write to
    int mStopWish = -1; // an eventfd that the main loop watches
    unsigned int mStopSource = 0;
    bool mRunning = false;
};
