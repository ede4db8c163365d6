// SPDX-License-Identifier: Apache-2.0
#include "service/Lifecycle.h"

#include "channel/QueueOwner.h"
#include "channel/ServiceQueue.h"
#include "hub/hubservice.h"
#include "service/IdleClock.h"
#include "service/MethodTables.h"
#include "service/ModuleStop.h"
#include "service/Registry.h"
#include "service/RenderWorker.h"
#include "service/Signals.h"

#include <glib.h>
#include <pthread.h>
#include <syslog.h>

#include <cstdio>

namespace {

constexpr char BUS_NAME[] = "com.kestrel.office";

pthread_t pthread;
pthread_attr_t attr;

struct Category {
    const char* name;
    const HubMethod* methods;
};

constexpr Category CATEGORIES[] = {
    {"/common", commonMethods}, {"/events", eventMethods}, {"/word", wordMethods},
    {"/excel", excelMethods},   {"/ppt", pptMethods},
};

// The bus library's error of one start-up.
class BusError {
public:
    BusError() { HubErrorInit(&mError); }
    ~BusError() { HubErrorFree(&mError); }
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;

    HubError* get() { return &mError; }
    // Passes a call's result on, after a line on standard error for a failure.
    bool check(bool succeeded) const {
        if (!succeeded) {
            std::fprintf(stderr, "error from Hub call: %s\n",
                         mError.message == nullptr ? "" : mError.message);
        }
        return succeeded;
    }

private:
    HubError mError;
};

// The loop that g_mainloop names, as long as the service needs one.
class MainLoop {
public:
    MainLoop() { g_mainloop = g_main_loop_new(nullptr, FALSE); }
    ~MainLoop() { release(); }
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;

    void run() {
        g_main_loop_run(g_mainloop);
        release();
    }

private:
    static void release() { g_clear_pointer(&g_mainloop, g_main_loop_unref); }
};

bool registerOnBus(HubHandle*& handle, BusError& error) {
    if (!error.check(HubRegister(BUS_NAME, &handle, error.get()))) {
        return false;
    }
    for (const Category& category : CATEGORIES) {
        if (!error.check(HubRegisterCategory(handle, category.name, category.methods, nullptr, nullptr,
                                             error.get()))) {
            return false;
        }
    }
    return true;
}

// False after a line on standard error for an error number.
bool checkThread(int result) {
    if (result != 0) {
        std::fprintf(stderr, "error from pthread: %d\n", result);
    }
    return result == 0;
}

bool startWorker() {
    pthread_attr_init(&attr);
    if (!checkThread(pthread_create(&pthread, &attr, server_func, nullptr))) {
        return false;
    }
    // What the first calls send must come after the worker has emptied the queue.
    awaitWorkerReady();
    return true;
}

// Waits for a rendering call in progress, which the modules cut short.
void stopWorker() {
    stopModulesSoon();
    pthread_cancel(pthread);
    pthread_join(pthread, nullptr);
    pthread_attr_destroy(&attr);
}

// Serves until the loop is quit; false when the bus cannot be attached.
bool serve(HubHandle* handle, MainLoop& loop, BusError& error) {
    const bool attached = error.check(HubGmainAttach(handle, g_mainloop, error.get()));
    if (attached) {
        gLastActive = 0;
        prvUpdateTimer();
        g_timeout_add_seconds(CHECK_SECONDS, prvCheckTimeout, nullptr);
        loop.run();
    }
    stopWorker();
    return attached;
}

} // namespace

int runService() {
    syslog(LOG_INFO, "Starting LecternServer");
    SignalThread signals;
    if (!checkThread(signals.start())) {
        return -1;
    }
    installSignalHandlers();
    BusError error;
    if (const int result = pthread_mutex_init(&gDocumentsMutex, nullptr); result != 0) {
        return result;
    }
    MainLoop loop;
    installTermHandler();

    HubHandle* handle = nullptr;
    QueueOwner owner;
    if (!registerOnBus(handle, error) || !owner.acquire(DocAdapterMessageQueue::PROJECT_ID) ||
        !startWorker() || !serve(handle, loop, error)) {
        return -1;
    }
    pthread_mutex_destroy(&gDocumentsMutex);
    syslog(LOG_INFO, "Stopping LecternServer: normal");
    return 0;
}
