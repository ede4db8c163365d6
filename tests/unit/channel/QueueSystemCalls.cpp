// SPDX-License-Identifier: Apache-2.0
#include "QueueSystemCalls.h"

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

SystemCalls systemCalls;

void SystemCalls::reset() {
    receives = 0;
    sleeps = 0;
    slept = 0;
    nextReceiveError = 0;
    onSleep = nullptr;
}

extern "C" {

ssize_t __real_msgrcv(int id, void* message, size_t size, long type, int flags);
ssize_t __wrap_msgrcv(int id, void* message, size_t size, long type, int flags);
int __wrap_usleep(useconds_t microseconds);

ssize_t __wrap_msgrcv(int id, void* message, size_t size, long type, int flags) {
    ++systemCalls.receives;
    if (const int error = systemCalls.nextReceiveError.exchange(0); error != 0) {
        errno = error;
        return -1;
    }
    return __real_msgrcv(id, message, size, type, flags);
}

int __wrap_usleep(useconds_t microseconds) {
    systemCalls.slept += microseconds;
    const int number = ++systemCalls.sleeps;
    if (systemCalls.onSleep) {
        systemCalls.onSleep(number);
    }
    errno = EINTR; // a sleep may change errno
    return 0;
}
}
