// SPDX-License-Identifier: Apache-2.0
// Tests with the service's queue, from which they read as a view's client.
#pragma once

#include "channel/ServiceQueue.h"
#include "tests/unit/view/IpcTest.h"
#include "view/OfficeBase.h"

#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/msg.h>

#include <vector>

class NotifiedTest : public IpcTest {
protected:
    void SetUp() override {
        IpcTest::SetUp();
        ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }
    void TearDown() override { EXPECT_EQ(g_msgQueue.Remove(), 0); }

    // The records that wait for a view's client; they are gone then.
    static std::vector<ServerClientMessage> takeRecords(const OfficeBase& view) {
        const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
        ServerClientMessage message;
        std::vector<ServerClientMessage> records;
        while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE,
                      static_cast<long>(view.dataStoreShmId()), IPC_NOWAIT) >= 0) {
            EXPECT_EQ(message.extra, 0);
            records.push_back(message);
        }
        return records;
    }
    // The same by their ids, where none carries a value.
    static std::vector<int> notifications(const OfficeBase& view) {
        std::vector<int> ids;
        for (const ServerClientMessage& record : takeRecords(view)) {
            EXPECT_EQ(record.value, 0);
            ids.push_back(record.id);
        }
        return ids;
    }
};
