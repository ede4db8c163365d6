// SPDX-License-Identifier: Apache-2.0
// How signals end the service.
//
// A handler interrupts whatever runs, with any lock held, so it may do very
// little. SIGTERM, SIGINT, SIGHUP and SIGQUIT are only passed on, through a
// pipe, to a thread that has nothing else to do and so acts at once, also while
// the main thread waits for a document to open. After a fault there is nobody
// left to pass it to: the handler does the work itself, although writing to the
// log is not safe there, and an alarm sees to it that the process ends anyway.
#pragma once

#include <pthread.h>

// For the signals that end the process right away: the queue is removed and
// the signal's number is the exit status, but for SIGHUP and SIGQUIT, which give 0.
void handle_signal(int signal);
// For SIGTERM: an orderly stop.
void term_handler(int signal);

// Installs handle_signal for SIGINT, SIGHUP, SIGQUIT, SIGTERM, SIGABRT, SIGILL,
// SIGFPE, SIGBUS and SIGSEGV; SIGPIPE is ignored from here on.
void installSignalHandlers();
// Puts term_handler in the place of handle_signal for SIGTERM. The main loop
// exists by now.
void installTermHandler();

// The thread that acts on what the handlers pass on: it ends the process, or has
// the default main loop quit.
class SignalThread {
public:
    SignalThread() = default;
    // Ends the thread and waits for it. On the main loop's thread, as start() is.
    ~SignalThread();
    SignalThread(const SignalThread&) = delete;
    SignalThread& operator=(const SignalThread&) = delete;

    // 0 or an error number. Before the handlers are installed; once per process at a time.
    [[nodiscard]] int start();

private:
    static void* run(void* thread);

    pthread_t mThread{};
    int mReadEnd = -1;  // of the pipe that handlers write to
    int mStopWish = -1; // an event that the main loop watches
    unsigned int mStopSource = 0;
    bool mRunning = false;
};
