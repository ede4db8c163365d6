// SPDX-License-Identifier: Apache-2.0
// Taking one record off a queue. Every process may post records of any size, and a
// record that a read refuses would block the queue for ever.
#pragma once

#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/types.h>

#include <cstddef>
#include <cstring>

// Receives the next record that fits. Throws away longer records and fills shorter
// ones with zeros. type and flags are those of msgrcv. Returns the size of the
// record's text in bytes, or -1 with errno.
template<typename Record>
ssize_t TakeRecord(int queueId, long type, int flags, Record& record) {
    struct {
        long type;
        unsigned char text[Record::TEXT_SIZE + 1]; // filled only by a record that is too long
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
