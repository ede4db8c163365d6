// SPDX-License-Identifier: Apache-2.0
#include "service/Lifecycle.h"

#include "channel/QueueOwner.h"
#include "channel/ServiceQueue.h"
#include "hub/hubservice.h"
#include "service/IdleClock.h"
#include "service/Limits.h"
#include "service/MethodTables.h"
#include "service/ModuleCalls.h"
#include "service/Opening.h"
#include "service/QueueReaders.h"
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
    {"/excel", excelMethods},   {"/ppt", pptMethods},      {"/touch", touchMethods},
};

// The bus library's error record during start-up.
class BusError {
public:
    BusError() { HubErrorInit(&mError); }
    ~BusError() { HubErrorFree(&mError); }
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;

    HubError* get() { return &mError; }
    // Returns `succeeded`. Writes the error to standard error if it is false.
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

// Owns the loop in g_mainloop and sets g_mainloop to null when it has ended.
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

// True for 0. Otherwise writes the error number to standard error and returns false.
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
    // The worker empties the queue when it starts. Wait for that, or it would
    // throw away the records that the first bus calls send.
    awaitWorkerReady();
    return true;
}

// Cancels the opens, the worker and its standbys and waits until they have ended.
// stopModulesSoon() shortens the rendering calls that they may be in.
void stopWorker() {
    stopModulesSoon();
    stopOpenings();
    pthread_cancel(pthread);
    gQueueReaders.stopStandbys();
    pthread_join(pthread, nullptr);
    pthread_attr_destroy(&attr);
}

// Serves until the loop quits. False if the loop cannot be attached to the bus.
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
    raiseDescriptorLimit();
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

    // The first engine starts while the bus is joined and the first call arrives.
    prepareModules();
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
