// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <gio/gio.h>

#include <stop_token>

namespace lectern {

// A stop token that a GCancellable uses. With a null cancellable nobody does.
class StopSource {
public:
    explicit StopSource(GCancellable* cancellable) : mCancellable(cancellable) {
        if (cancellable != nullptr) {
            g_object_ref(cancellable);
            mHandler = g_cancellable_connect(cancellable, G_CALLBACK(&StopSource::stop), this, nullptr);
        }
    }
    ~StopSource() { g_cancellable_disconnect(mCancellable.get(), mHandler); }
    StopSource(const StopSource&) = delete;
    StopSource& operator=(const StopSource&) = delete;

    std::stop_token token() const { return mSource.get_token(); }

private:
    static void stop(GCancellable*, gpointer self) { static_cast<StopSource*>(self)->mSource.request_stop(); }

    std::stop_source mSource;
    GLibHolder<GCancellable> mCancellable;
    gulong mHandler = 0;
};

} // namespace lectern
