// SPDX-License-Identifier: Apache-2.0
// The threads on which files are opened.
#include "base/Mutex.h"
#include "service/Opening.h"

#include <pthread.h>

#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <deque>
#include <list>

namespace {

// Never destroyed: its threads are not joined, but waited for.
class Threads {
public:
    void start(const std::shared_ptr<Opening>& opening);
    bool areBusy();
    void stop();

private:
    static void* runAll(void* threads);
    std::shared_ptr<Opening> takeNext();
    void hasRun(const std::shared_ptr<Opening>& opening);
    bool addThread() REQUIRES(mMutex);

    lectern::Mutex mMutex;
    std::condition_variable_any mEnded;
    size_t mThreads GUARDED_BY(mMutex) = 0;
    std::deque<std::shared_ptr<Opening>> mWaiting GUARDED_BY(mMutex);
    std::list<std::shared_ptr<Opening>> mRunning GUARDED_BY(mMutex);
};

Threads& threads() {
    static Threads& only = *new Threads();
    return only;
}

void Threads::start(const std::shared_ptr<Opening>& opening) {
    {
        const lectern::Lock lock(mMutex);
        mWaiting.push_back(opening);
        if (mThreads == MOST_OPENINGS || addThread() || mThreads > 0) {
            return;
        }
        mWaiting.pop_back();
    }
    opening->run();
}

bool Threads::addThread() {
    pthread_attr_t detached;
    pthread_attr_init(&detached);
    pthread_attr_setdetachstate(&detached, PTHREAD_CREATE_DETACHED);
    pthread_t thread{};
    const int result = pthread_create(&thread, &detached, runAll, this);
    pthread_attr_destroy(&detached);
    if (result != 0) {
        std::fprintf(stderr, "No thread to open a file: %s\n", std::strerror(result));
        return false;
    }
    ++mThreads;
    return true;
}

void* Threads::runAll(void* threads) {
    auto* self = static_cast<Threads*>(threads);
    while (const std::shared_ptr<Opening> opening = self->takeNext()) {
        opening->run();
        self->hasRun(opening);
    }
    return nullptr;
}

// Null when none waits; then the thread ends.
std::shared_ptr<Opening> Threads::takeNext() {
    const lectern::Lock lock(mMutex);
    if (mWaiting.empty()) {
        --mThreads;
        mEnded.notify_all();
        return nullptr;
    }
    std::shared_ptr<Opening> next = std::move(mWaiting.front());
    mWaiting.pop_front();
    mRunning.push_back(next);
    return next;
}

void Threads::hasRun(const std::shared_ptr<Opening>& opening) {
    const lectern::Lock lock(mMutex);
    mRunning.remove(opening);
}

bool Threads::areBusy() {
    const lectern::Lock lock(mMutex);
    return mThreads > 0;
}

void Threads::stop() {
    lectern::Lock lock(mMutex);
    mWaiting.clear();
    for (const std::shared_ptr<Opening>& opening : mRunning) {
        opening->cancel();
    }
    while (mThreads > 0) {
        mEnded.wait(lock);
    }
}

} // namespace

void startOpening(const std::shared_ptr<Opening>& opening) {
    threads().start(opening);
}

bool hasOpenings() {
    return threads().areBusy();
}

void stopOpenings() {
    threads().stop();
}
