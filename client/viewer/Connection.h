// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Pending.h"

#include <lectern-glib/lectern-glib.h>

#include <functional>
#include <map>

namespace lectern::viewer {

// The connection to the document service, which all windows share. It is made when the
// first document is opened.
class Connection {
public:
    // Gets the service, or null and the error.
    using OnDone = std::function<void(LecternService*, const GError*)>;

    // Calls onDone once, now or later. waiter: whom giveUp() names.
    void get(const void* waiter, OnDone onDone);
    void giveUp(const void* waiter) { mWaiting.erase(waiter); }
    // The connection does not work any more: the next get() makes another.
    void drop() { mService.reset(); }

private:
    void finish(GObject* source, GAsyncResult* result);

    GLibHolder<LecternService> mService;
    std::map<const void*, OnDone> mWaiting;
    bool mConnecting = false;
    Pending mPending;
};

} // namespace lectern::viewer
