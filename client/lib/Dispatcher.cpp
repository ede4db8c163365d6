// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Dispatcher.h"

#include "base/Mutex.h"

#include <deque>
#include <mutex>
#include <utility>

namespace lectern {

struct Dispatcher::Outbox {
    // Held while a task runs; close() takes it to wait for the task. Recursive,
    // because a task may destroy the dispatcher.
    std::recursive_mutex running;
    Mutex mutex;
    std::deque<std::function<void()>> tasks GUARDED_BY(mutex);
    // A source in the context is going to run the tasks.
    bool scheduled GUARDED_BY(mutex) = false;
    bool closed GUARDED_BY(mutex) = false;
};

namespace {

// Runs a context on this thread until a stop is requested. Takes ownership of
// the reference `context`, because the thread may outlive the dispatcher.
void runContext(const std::stop_token& stop, GMainContext* context) {
    const GLibHolder<GMainContext> held(context);
    const std::stop_callback wake(stop, [context] { g_main_context_wakeup(context); });
    g_main_context_push_thread_default(context);
    while (!stop.stop_requested()) {
        g_main_context_iteration(context, TRUE);
    }
    g_main_context_pop_thread_default(context);
}

} // namespace

Dispatcher::Dispatcher(GMainContext* context)
    : mContext(context != nullptr ? g_main_context_ref(context) : g_main_context_new()),
      mOutbox(std::make_shared<Outbox>()) {
    if (context == nullptr) {
        mThread = std::jthread([own = g_main_context_ref(mContext.get())](const std::stop_token& stop) {
            runContext(stop, own);
        });
        pthread_setname_np(mThread.native_handle(), "lectern-events");
    }
}

void Dispatcher::close() {
    {
        const Lock lock(mOutbox->mutex);
        mOutbox->closed = true;
        mOutbox->tasks.clear();
    }
    const std::lock_guard idle(mOutbox->running);
}

Dispatcher::~Dispatcher() {
    close();
    mThread.request_stop();
    if (mThread.get_id() == std::this_thread::get_id()) {
        mThread.detach(); // the thread ends when this task returns
    }
}

void Dispatcher::post(std::function<void()> task) {
    {
        const Lock lock(mOutbox->mutex);
        if (mOutbox->closed) {
            return;
        }
        mOutbox->tasks.push_back(std::move(task));
        if (std::exchange(mOutbox->scheduled, true)) {
            return;
        }
    }
    const GLibHolder<GSource> source(g_idle_source_new());
    g_source_set_priority(source.get(), G_PRIORITY_DEFAULT);
    g_source_set_callback(
        source.get(),
        [](void* outbox) -> gboolean {
            return deliverNext(**static_cast<std::shared_ptr<Outbox>*>(outbox)) ? G_SOURCE_CONTINUE
                                                                                : G_SOURCE_REMOVE;
        },
        new std::shared_ptr<Outbox>(mOutbox),
        [](void* outbox) { delete static_cast<std::shared_ptr<Outbox>*>(outbox); });
    g_source_attach(source.get(), mContext.get());
}

// Runs one task, so that other sources of the context get their turn. Returns
// whether there are more.
bool Dispatcher::deliverNext(Outbox& outbox) {
    const std::lock_guard running(outbox.running);
    std::function<void()> task;
    {
        const Lock lock(outbox.mutex);
        if (!outbox.tasks.empty()) {
            task = std::move(outbox.tasks.front());
            outbox.tasks.pop_front();
        }
    }
    if (task) {
        task();
    }
    const Lock lock(outbox.mutex);
    outbox.scheduled = !outbox.tasks.empty();
    return outbox.scheduled;
}

} // namespace lectern
