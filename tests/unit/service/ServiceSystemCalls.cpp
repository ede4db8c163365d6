// SPDX-License-Identifier: Apache-2.0
#include "ServiceSystemCalls.h"

#include <glib.h>
#include <json-c/json.h>
#include <pthread.h>
#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/shm.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <utility>

SystemCalls systemCalls;

namespace {

std::mutex logMutex;
std::vector<std::string> logLines;

void log(int priority, const char* format, va_list arguments) {
    char text[1024];
    std::vsnprintf(text, sizeof text, format, arguments);
    if (systemCalls.onLog) {
        systemCalls.onLog();
    }
    if (systemCalls.echoLog) {
        std::fprintf(stderr, "<%d> %s\n", priority, text);
    }
    const std::lock_guard lock(logMutex);
    logLines.push_back("<" + std::to_string(priority) + "> " + text);
}

struct Timer {
    guint seconds;
    GSourceFunc function;
    gpointer data;
};

gboolean fire(gpointer timer) {
    const auto* self = static_cast<Timer*>(timer);
    systemCalls.now += self->seconds;
    return self->function(self->data);
}

} // namespace

std::vector<std::string> SystemCalls::takeLog() {
    const std::lock_guard lock(logMutex);
    return std::exchange(logLines, {});
}

extern "C" {

void __wrap_syslog(int priority, const char* format, ...) __attribute__((format(printf, 2, 3)));
void __wrap___syslog_chk(int priority, int flag, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
time_t __real_time(time_t* out);
time_t __wrap_time(time_t* out);
json_object* __real_json_object_new_object();
json_object* __wrap_json_object_new_object();
int __real_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes);
int __wrap_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes);
int __real_pthread_mutex_unlock(pthread_mutex_t* mutex);
int __wrap_pthread_mutex_unlock(pthread_mutex_t* mutex);
int __real_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                          void* arg);
int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                          void* arg);
ssize_t __real_msgrcv(int id, void* message, size_t size, long type, int flags);
ssize_t __wrap_msgrcv(int id, void* message, size_t size, long type, int flags);
int __real_msgget(key_t key, int flags);
int __wrap_msgget(key_t key, int flags);
int __real_shmget(key_t key, size_t size, int flags);
int __wrap_shmget(key_t key, size_t size, int flags);
int __real_msgsnd(int id, const void* message, size_t size, int flags);
int __wrap_msgsnd(int id, const void* message, size_t size, int flags);
void* __real_shmat(int id, const void* address, int flags);
void* __wrap_shmat(int id, const void* address, int flags);
int __real_usleep(useconds_t microseconds);
int __wrap_usleep(useconds_t microseconds);
guint __real_g_timeout_add_seconds(guint seconds, GSourceFunc function, gpointer data);
guint __wrap_g_timeout_add_seconds(guint seconds, GSourceFunc function, gpointer data);

void __wrap_syslog(int priority, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    log(priority, format, arguments);
    va_end(arguments);
}

void __wrap___syslog_chk(int priority, int /*flag*/, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    log(priority, format, arguments);
    va_end(arguments);
}

time_t __wrap_time(time_t* out) {
    if (systemCalls.now == 0) {
        return __real_time(out);
    }
    if (out != nullptr) {
        *out = systemCalls.now;
    }
    return systemCalls.now;
}

json_object* __wrap_json_object_new_object() {
    return systemCalls.noJsonObjects ? nullptr : __real_json_object_new_object();
}

int __wrap_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes) {
    const int error = systemCalls.mutexInitError.exchange(0);
    return error != 0 ? error : __real_pthread_mutex_init(mutex, attributes);
}

int __wrap_pthread_mutex_unlock(pthread_mutex_t* mutex) {
    const int result = __real_pthread_mutex_unlock(mutex);
    return mutex == systemCalls.failingUnlock ? EPERM : result;
}

int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                          void* arg) {
    if (systemCalls.threadsUntilError >= 0 && systemCalls.threadsUntilError-- == 0) {
        return systemCalls.threadError;
    }
    return __real_pthread_create(thread, attributes, body, arg);
}

ssize_t __wrap_msgrcv(int id, void* message, size_t size, long type, int flags) {
    if ((flags & IPC_NOWAIT) == 0 && systemCalls.receiveErrors > 0) {
        --systemCalls.receiveErrors;
        errno = systemCalls.receiveError;
        return -1;
    }
    return __real_msgrcv(id, message, size, type, flags);
}

int __wrap_msgget(key_t key, int flags) {
    if (systemCalls.noQueue) {
        errno = ENOSPC;
        return -1;
    }
    return __real_msgget(key, flags);
}

int __wrap_shmget(key_t key, size_t size, int flags) {
    if (systemCalls.noSegments) {
        errno = ENOSPC;
        return -1;
    }
    return __real_shmget(key, size, flags);
}

int __wrap_msgsnd(int id, const void* message, size_t size, int flags) {
    if (systemCalls.onSend) {
        systemCalls.onSend(*static_cast<const long*>(message));
    }
    return __real_msgsnd(id, message, size, flags);
}

void* __wrap_shmat(int id, const void* address, int flags) {
    if ((flags & SHM_REMAP) != 0 && systemCalls.onFrameAttach) {
        systemCalls.onFrameAttach();
    }
    return __real_shmat(id, address, flags);
}

int __wrap_usleep(useconds_t microseconds) {
    systemCalls.slept += microseconds;
    return __real_usleep(microseconds);
}

guint __wrap_g_timeout_add_seconds(guint seconds, GSourceFunc function, gpointer data) {
    if (!systemCalls.timersAtOnce) {
        return __real_g_timeout_add_seconds(seconds, function, data);
    }
    return g_idle_add_full(G_PRIORITY_DEFAULT_IDLE, fire, new Timer{seconds, function, data},
                           [](gpointer timer) { delete static_cast<Timer*>(timer); });
}
}
