// SPDX-License-Identifier: Apache-2.0
#include "service/Signals.h"

#include "channel/ServiceQueue.h"
#include "service/IdleClock.h"
#include "service/ModuleCalls.h"

#include <fcntl.h>
#include <glib-unix.h>
#include <sys/eventfd.h>
#include <syslog.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>

namespace {

constexpr unsigned int FAULT_SECONDS = 2;
// The values in the pipe that are not signal numbers. No signal has one of them.
constexpr unsigned char END_OF_THREAD = 0;
constexpr unsigned char ORDERLY_STOP = 255;

// The write end of the pipe; -1 while there is no signal thread.
std::atomic<int> passOnTo{-1};
static_assert(std::atomic<int>::is_always_lock_free);

// The number of the fault signal that is ending the process, or 0.
std::atomic<int> fault{0};

// Whether an orderly stop has begun; further requests are ignored.
std::atomic<bool> stopAsked{false};

void passOn(unsigned char what) {
    const int interrupted = errno;
    const ssize_t written = write(passOnTo, &what, 1);
    static_cast<void>(written); // if the pipe is full, it already holds a request to end
    errno = interrupted;
}

bool isFault(int signal) {
    return signal == SIGABRT || signal == SIGILL || signal == SIGFPE || signal == SIGBUS || signal == SIGSEGV;
}

// Logs the signal, removes the queue, which tells clients that the service is gone,
// and ends the process.
[[noreturn]] void endBySignal(int signal) {
    syslog(LOG_DEBUG, "LecternServer got signal: %d", signal);
    g_msgQueue.Remove();
    _exit(signal == SIGHUP || signal == SIGQUIT ? 0 : signal);
}

// For a log call that hangs or faults during the handling of a fault.
[[noreturn]] void endWithoutLog(int /*signal*/) {
    g_msgQueue.Remove();
    _exit(fault);
}

[[noreturn]] void endByFault(int signal) {
    int none = 0;
    if (!fault.compare_exchange_strong(none, signal)) {
        endWithoutLog(signal);
    }
    struct sigaction alarmed = {};
    alarmed.sa_handler = endWithoutLog;
    sigaction(SIGALRM, &alarmed, nullptr);
    alarm(FAULT_SECONDS);
    endBySignal(signal);
}

// The mask is empty, so that a fault inside a fault handler calls the handler
// again.
void install(int signal, void (*handler)(int), int flags) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

// Called by the loop when the event is set. The event is not reset, so that a
// request that comes before the loop runs ends the loop when it starts.
gboolean quitMainLoop(int /*stopWish*/, GIOCondition /*condition*/, void* /*data*/) {
    g_main_loop_quit(g_mainloop);
    return G_SOURCE_CONTINUE;
}

// Requests an orderly stop. Runs on the signal thread.
void stopInOrder(int stopWish) {
    if (stopAsked.exchange(true)) {
        return;
    }
    syslog(LOG_INFO, "Stopping LecternServer: terminated by signal");
    stopModulesSoon();
    eventfd_write(stopWish, 1);
}

} // namespace

void handle_signal(int signal) {
    if (isFault(signal)) {
        endByFault(signal);
    }
    passOn(static_cast<unsigned char>(signal));
}

void term_handler(int /*signal*/) {
    passOn(ORDERLY_STOP);
}

void installSignalHandlers() {
    for (const int signal : {SIGINT, SIGHUP, SIGQUIT, SIGTERM, SIGABRT, SIGILL, SIGFPE, SIGBUS, SIGSEGV}) {
        install(signal, handle_signal, SA_RESTART | SA_NODEFER);
    }
    install(SIGPIPE, SIG_IGN, 0);
}

void installTermHandler() {
    install(SIGTERM, term_handler, 0);
}

int SignalThread::start() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) == -1) {
        return errno;
    }
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
    mReadEnd = ends[0];
    passOnTo = ends[1];
    mStopWish = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (mStopWish == -1) {
        return errno;
    }
    mStopSource = g_unix_fd_add_full(G_PRIORITY_HIGH, mStopWish, G_IO_IN, quitMainLoop, nullptr, nullptr);
    stopAsked = false;
    const int result = pthread_create(&mThread, nullptr, run, this);
    mRunning = result == 0;
    return result;
}

SignalThread::~SignalThread() {
    if (mRunning) {
        passOn(END_OF_THREAD);
        pthread_join(mThread, nullptr);
    }
    if (mStopWish != -1) {
        g_source_remove(mStopSource);
        close(mStopWish);
    }
    if (mReadEnd != -1) {
        close(passOnTo.exchange(-1));
        close(mReadEnd);
    }
}

void* SignalThread::run(void* thread) {
    const auto& self = *static_cast<SignalThread*>(thread);
    unsigned char what = END_OF_THREAD;
    // Retries after EINTR, because a signal handler may run on this thread too.
    while (TEMP_FAILURE_RETRY(read(self.mReadEnd, &what, 1)) == 1 && what != END_OF_THREAD) {
        if (what != ORDERLY_STOP) {
            endBySignal(what);
        }
        stopInOrder(self.mStopWish);
    }
    return nullptr;
}
