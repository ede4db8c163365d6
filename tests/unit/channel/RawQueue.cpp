// SPDX-License-Identifier: Apache-2.0
#include "RawQueue.h"

#include "QueueSystemCalls.h"

#include <sys/ipc.h>
#include <sys/msg.h>

#include <cstring>

namespace {

struct Wire {
    long type;
    char text[8192];
};

template<typename Record>
std::string textOf(const Record& message) {
    return {reinterpret_cast<const char*>(&message) + sizeof(long), Record::TEXT_SIZE};
}

} // namespace

void RawQueueTest::SetUp() {
    systemCalls.reset();
    id = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), IPC_CREAT | 0666);
    ASSERT_NE(id, -1);
    take();
}

void RawQueueTest::TearDown() {
    remove();
}

bool RawQueueTest::post(long type, const std::string& text) const {
    Wire wire;
    wire.type = type;
    std::memcpy(wire.text, text.data(), text.size());
    return msgsnd(id, &wire, text.size(), IPC_NOWAIT) == 0;
}

bool RawQueueTest::post(const ClientServerMessage& message) const {
    return post(message.type, textOf(message));
}

bool RawQueueTest::post(const ServerClientMessage& message) const {
    return post(message.type, textOf(message));
}

std::vector<RawRecord> RawQueueTest::take(long type) const {
    std::vector<RawRecord> records;
    Wire wire;
    ssize_t size = 0;
    while ((size = msgrcv(id, &wire, sizeof wire.text, type, IPC_NOWAIT)) >= 0) {
        records.push_back({wire.type, std::string(wire.text, static_cast<size_t>(size))});
    }
    return records;
}

std::vector<int> RawQueueTest::takeValues(long addressee) const {
    std::vector<int> values;
    for (const RawRecord& record : take(addressee)) {
        int value = 0;
        std::memcpy(&value, record.text.data() + 4, sizeof value);
        values.push_back(value);
    }
    return values;
}

unsigned long RawQueueTest::waiting() const {
    msqid_ds status = {};
    msgctl(id, IPC_STAT, &status);
    return status.msg_qnum;
}

void RawQueueTest::remove() const {
    msgctl(id, IPC_RMID, nullptr);
}

ServerClientMessage RawQueueTest::output(long addressee, ClientMessageId messageId, int value) {
    ServerClientMessage message(addressee, messageId);
    message.value = value;
    return message;
}
