// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pthread.h>

namespace lectern {

// Enables the cancellation of this thread for its lifetime.
class Cancellable {
public:
    Cancellable() { pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &mBefore); }
    ~Cancellable() { pthread_setcancelstate(mBefore, nullptr); }
    Cancellable(const Cancellable&) = delete;
    Cancellable& operator=(const Cancellable&) = delete;

private:
    int mBefore = PTHREAD_CANCEL_ENABLE;
};

} // namespace lectern
