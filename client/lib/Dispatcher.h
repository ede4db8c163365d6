// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <functional>
#include <memory>
#include <thread>

namespace lectern {

// Where callbacks are called: on a GLib main context of the program's, or on a
// thread of the dispatcher's own, which has a context of its own.
class Dispatcher {
public:
    // context: where somebody runs a loop; null for a thread.
    explicit Dispatcher(GMainContext* context);
    ~Dispatcher();
    Dispatcher(const Dispatcher&) = delete;
    Dispatcher& operator=(const Dispatcher&) = delete;

    // Has the task run soon, after those before it. From any thread; never waits.
    void post(std::function<void()> task);
    // From here on nothing is run any more; what has not begun is dropped. Waits
    // for a task that is going on, unless it is that one which calls this.
    void close();

private:
    struct Outbox;
    static bool deliverNext(Outbox& outbox);

    GLibHolder<GMainContext> mContext;
    std::shared_ptr<Outbox> mOutbox; // shared with the sources that wait in the context
    std::jthread mThread;            // only where no context was given
};

} // namespace lectern
