// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Connection.h"

#include <utility>

namespace lectern::viewer {

void Connection::get(const void* waiter, OnDone onDone) {
    if (mService) {
        onDone(mService.get(), nullptr);
        return;
    }
    mWaiting[waiter] = std::move(onDone);
    if (!std::exchange(mConnecting, true)) {
        lectern_service_connect_async(mPending.get(), asyncDone<&Connection::finish>, this);
    }
}

void Connection::finish(GObject* /*source*/, GAsyncResult* result) {
    GLibHolder<GError> error;
    mService.reset(lectern_service_connect_finish(result, out(error)));
    mConnecting = false;
    // Those who wait may give up, or ask again, meanwhile.
    while (!mWaiting.empty()) {
        const OnDone onDone = std::move(mWaiting.extract(mWaiting.begin()).mapped());
        onDone(mService.get(), error.get());
    }
}

} // namespace lectern::viewer
