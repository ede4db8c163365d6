// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <functional>
#include <memory>
#include <thread>

namespace lectern {

// Runs callbacks either in a GLib main context of the program or in the
// dispatcher's own thread, which has its own context.
class Dispatcher {
public:
    // context: a main context whose loop the program runs; null for an own thread.
    explicit Dispatcher(GMainContext* context);
    ~Dispatcher();
    Dispatcher(const Dispatcher&) = delete;
    Dispatcher& operator=(const Dispatcher&) = delete;

    // Queues a task to run after those posted before. Any thread may call this;
    // never blocks.
    void post(std::function<void()> task);
    // Drops the tasks that have not started and runs none from now on. Waits
    // for a running task, unless that task is the caller.
    void close();

private:
    struct Outbox;
    static bool deliverNext(Outbox& outbox);

    GLibHolder<GMainContext> mContext;
    std::shared_ptr<Outbox> mOutbox; // shared with the sources that wait in the context
    std::jthread mThread;            // used only when no context was given
};

} // namespace lectern
