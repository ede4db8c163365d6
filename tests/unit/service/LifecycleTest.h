// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ServiceTest.h"
#include "service/Lifecycle.h"

#include <sys/ipc.h>
#include <sys/msg.h>

#include <csignal>

// Tests of a whole service on the fake bus. Each test is a process, because the
// service changes its signals and threads.
class LifecycleTest : public testing::Test {
protected:
    void SetUp() override {
        fakeHub.reset();
        systemCalls.takeLog();
    }
    void TearDown() override {
        systemCalls.threadsUntilError = -1;
        systemCalls.now = 0;
        systemCalls.timersAtOnce = false;
        systemCalls.onLog = nullptr;
        g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID);
        g_msgQueue.Remove();
    }
    // Calls a function inside the service's loop.
    static void inLoop(GSourceFunc function) { g_idle_add(function, nullptr); }
    static bool queueExists() { return msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0) != -1; }
    static struct sigaction handlerOf(int number) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        return action;
    }
};
