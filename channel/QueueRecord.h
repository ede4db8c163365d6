// SPDX-License-Identifier: Apache-2.0
// Taking one record off a queue, whoever wrote it: anybody may post records of
// any size, and one that a read refuses would stay in front for ever.
#pragma once

#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/types.h>

#include <cstddef>
#include <cstring>

// Receives the next record of a type that fits; longer ones are thrown away and
// shorter ones filled with zeros. The size of its text, or -1 with errno.
template<typename Record>
ssize_t TakeRecord(int queueId, long type, int flags, Record& record) {
    struct {
        long type;
        unsigned char text[Record::TEXT_SIZE + 1]; // the last byte tells what is too long
    } buffer;
    ssize_t size = 0;
    do {
        buffer = {};
        size = msgrcv(queueId, &buffer, sizeof buffer.text, type, flags | MSG_NOERROR);
    } while (size == static_cast<ssize_t>(sizeof buffer.text));
    if (size >= 0) {
        std::memcpy(static_cast<void*>(&record), &buffer, sizeof record);
    }
    return size;
}
