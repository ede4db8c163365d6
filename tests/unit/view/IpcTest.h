// SPDX-License-Identifier: Apache-2.0
// Tests that create segments and queues, each in a new IPC namespace as after boot.
#pragma once

#include "base/SharedSegment.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/ipc.h>
#include <sys/shm.h>

class IpcTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(unshare(CLONE_NEWIPC), 0); }

    static int segmentsInUse() {
        shm_info info{};
        shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info));
        return info.used_ids;
    }
    // The segment's status; empty when there is no segment.
    static shmid_ds segmentStatus(unsigned int id) {
        shmid_ds status{};
        return shmctl(static_cast<int>(id), IPC_STAT, &status) == 0 ? status : shmid_ds{};
    }
    static unsigned int makeSegment(size_t size, int mode = 0666) {
        return static_cast<unsigned int>(shmget(IPC_PRIVATE, size, IPC_CREAT | mode));
    }
    // A segment that a client has kept from an earlier view; its identifier is
    // above the reserved ones.
    static unsigned int makeClientSegment(size_t size) {
        return static_cast<unsigned int>(lectern::makeSegment(4096, IPC_PRIVATE, size, 0666));
    }
};
