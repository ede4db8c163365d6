// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/OfficeBase.h"

#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/msg.h>

#include <vector>

// Takes the records for a view's client and returns their ids.
inline std::vector<int> takeNotifications(const OfficeBase& view) {
    const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
    ServerClientMessage message;
    std::vector<int> ids;
    while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE, static_cast<long>(view.dataStoreShmId()),
                  IPC_NOWAIT) >= 0) {
        EXPECT_EQ(message.value, 0);
        EXPECT_EQ(message.extra, 0);
        ids.push_back(message.id);
    }
    return ids;
}
