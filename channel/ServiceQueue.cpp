// SPDX-License-Identifier: Apache-2.0
#include "channel/ServiceQueue.h"

#include "base/Cancellable.h"
#include "channel/QueueRecord.h"
#include "channel/Undelivered.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <limits>
#include <type_traits>
#include <vector>

ServiceQueue g_msgQueue;

namespace {

constexpr char READ_FAILED[] = "Can't read message from client";
constexpr char SEND_FAILED[] = "Failure sending messages";
constexpr int32_t NO_DOCUMENT = -1;

bool isWake(const ClientServerMessage& message) {
    return message.type == DocAdapterMessageQueue::HIGHEST_CLIENT_TYPE && message.docid == NO_DOCUMENT;
}

} // namespace

long ServiceQueue::ReadMessage(ClientServerMessage& message) {
    for (;;) {
        const int id = mQueueId;
        {
            const lectern::Lock lock(mMutex);
            const long size = takeNext(message);
            if (size >= 0) {
                ++mMessagesRead;
                return size;
            }
            if (errno != ENOMSG) {
                return fail(READ_FAILED, id);
            }
        }
        const long size = awaitRecord(message);
        if (size >= 0) {
            ++mMessagesRead;
            return size;
        }
        if (errno != E2BIG) {
            return fail(READ_FAILED, id);
        }
    }
}

// Takes the first record of queue and backlog without waiting. Returns -1 with
// ENOMSG if there is none.
long ServiceQueue::takeNext(ClientServerMessage& message) {
    // Only records of a lower type may overtake the backlog's first record.
    const long lastType = mBacklog.empty() ? HIGHEST_CLIENT_TYPE : mBacklog.lowestType() - 1;
    errno = ENOMSG;
    const long size = lastType > 0 ? TakeRecord(mQueueId, -lastType, IPC_NOWAIT, message) : -1;
    if (size == -1 && errno == ENOMSG && !mBacklog.empty()) {
        message = mBacklog.pop();
        return static_cast<long>(ClientServerMessage::TEXT_SIZE);
    }
    return size;
}

// Sleeps until a client record is in the queue, and leaves it there: returns -1
// with E2BIG. A record without text is taken off by this call: then returns 0, and
// `message` is all zeros except for its type.
long ServiceQueue::awaitRecord(ClientServerMessage& message) {
    long type = 0;
    ssize_t size = 0;
    {
        const lectern::Cancellable whileAsleep;
        size = msgrcv(mQueueId, &type, 0, ANY_CLIENT_MESSAGE, 0);
    }
    if (size == 0) {
        message = ClientServerMessage(type, 0);
    }
    return size;
}

int ServiceQueue::SendMessage(const ServerClientMessage& message) {
    if (message.type <= HIGHEST_CLIENT_TYPE) {
        errno = EINVAL;
        return fail(SEND_FAILED, NOT_OPEN);
    }
    const lectern::Lock lock(mMutex);
    return post(message, message.type);
}

int ServiceQueue::SendMessage(const ClientServerMessage& message) {
    const lectern::Lock lock(mMutex);
    return post(message, 0);
}

int ServiceQueue::SendPaintDone(int32_t docid, int32_t value, int32_t extra) {
    const int64_t addressee = static_cast<int64_t>(docid) + PAINT_DONE_BASE;
    // A client may be a 32-bit program, whose types are 32 bits wide.
    if (addressee <= HIGHEST_CLIENT_TYPE || addressee > std::numeric_limits<int32_t>::max()) {
        return 0;
    }
    ServerClientMessage message(static_cast<long>(addressee), _PAINT_DONE);
    message.value = value;
    message.extra = extra;
    return SendMessage(message);
}

void ServiceQueue::Discard(long addressee) {
    const lectern::Lock lock(mMutex);
    ServerClientMessage scrap;
    while (addressee > HIGHEST_CLIENT_TYPE && TakeRecord(mQueueId, addressee, IPC_NOWAIT, scrap) >= 0) {
    }
}

void ServiceQueue::Wake() {
    const lectern::Lock lock(mMutex);
    mWakeOwed = true;
    payWake();
}

void ServiceQueue::payWake() {
    if (mWakeOwed && sendNow(ClientServerMessage(HIGHEST_CLIENT_TYPE, NO_DOCUMENT), 0) == 0) {
        mWakeOwed = false;
    }
}

template<typename Record>
int ServiceQueue::post(const Record& message, long addressee) {
    const int result = sendNow(message, addressee);
    payWake();
    return result;
}

template<typename Record>
int ServiceQueue::sendNow(const Record& message, long addressee) {
    const int id = mQueueId;
    // Output must leave room for one client record. Client records may use it.
    constexpr bool IS_OUTPUT = std::is_same_v<Record, ServerClientMessage>;
    constexpr size_t SIZE = Record::TEXT_SIZE + (IS_OUTPUT ? ClientServerMessage::TEXT_SIZE : 0);
    bool hadAnything = true;
    while ((IS_OUTPUT && !hasRoom(SIZE)) || msgsnd(id, &message, Record::TEXT_SIZE, IPC_NOWAIT) == -1) {
        if (errno != EAGAIN || !hadAnything) {
            return fail(SEND_FAILED, id);
        }
        hadAnything = makeRoom(addressee, SIZE);
    }
    ++mMessagesSent;
    return 0;
}

// Whether the queue has room for this many bytes; if not, errno is EAGAIN. True for
// an empty queue, because making room is impossible; msgsnd then decides.
bool ServiceQueue::hasRoom(size_t size) {
    msqid_ds status = {};
    if (msgctl(mQueueId, IPC_STAT, &status) == -1) {
        return true; // the send fails for the same reason
    }
    errno = EAGAIN;
    return status.msg_qnum == 0 || status.msg_cbytes + size <= status.msg_qbytes;
}

// Moves client records to the backlog or else gives up output. False if the queue
// is empty: a record that does not fit then never will.
bool ServiceQueue::makeRoom(long addressee, size_t size) {
    msqid_ds status = {};
    if (msgctl(mQueueId, IPC_STAT, &status) == 0 && status.msg_qnum == 0) {
        return false;
    }
    if (!moveToBacklog()) {
        giveUpOutput(addressee, status.msg_qbytes - std::min<size_t>(size, status.msg_qbytes));
    }
    return true;
}

// The number of waiting records. Loops take off no more than this number, so that
// they end also if a client posts records all the time.
size_t ServiceQueue::waitingNow() {
    msqid_ds status = {};
    msgctl(mQueueId, IPC_STAT, &status);
    return status.msg_qnum;
}

// Moves all waiting client records to the backlog. False if there was none.
bool ServiceQueue::moveToBacklog() {
    bool moved = false;
    ClientServerMessage message;
    for (size_t left = waitingNow();
         left > 0 && TakeRecord(mQueueId, ANY_CLIENT_MESSAGE, IPC_NOWAIT, message) >= 0; --left) {
        moved = true;
        keep(message);
    }
    return moved;
}

void ServiceQueue::keep(const ClientServerMessage& message) {
    if (!isWake(message)) {
        mBacklog.push(message);
    }
    mWakeOwed = true;
}

// Gives up undelivered output until the rest has at most `capacity` bytes. Records
// of an invalid size go first. A queue can only be inspected by taking records
// off: so all are taken off, and the kept ones are posted again in the same order.
void ServiceQueue::giveUpOutput(long addressee, size_t capacity) {
    std::vector<ServerClientMessage> waiting;
    ServerClientMessage first;
    if (addressee > HIGHEST_CLIENT_TYPE && TakeRecord(mQueueId, addressee, IPC_NOWAIT, first) >= 0) {
        // The usual case is a client that never reads. Then the record just taken
        // off is the one to give up, and the others can stay.
        if (first.id == _INVALIDATED) {
            return;
        }
        waiting.push_back(first);
    }
    takeOutput(waiting);
    while (waiting.size() * ServerClientMessage::TEXT_SIZE > capacity) {
        waiting.erase(waiting.begin() + static_cast<std::ptrdiff_t>(LeastMissed(waiting, addressee)));
    }
    for (const ServerClientMessage& message : waiting) {
        // Clients that were waiting for room may have filled some of it by now.
        while (msgsnd(mQueueId, &message, ServerClientMessage::TEXT_SIZE, IPC_NOWAIT) == -1 &&
               errno == EAGAIN && moveToBacklog()) {
        }
    }
}

// Takes all records off the queue: moves output into `waiting` and client records
// into the backlog, and throws away output of another size than
// ServerClientMessage.
void ServiceQueue::takeOutput(std::vector<ServerClientMessage>& waiting) {
    ClientServerMessage any; // the longer of the two records holds both
    for (size_t left = waitingNow(); left > 0; --left) {
        const ssize_t size = TakeRecord(mQueueId, 0, IPC_NOWAIT, any);
        if (size < 0) {
            return;
        }
        if (any.type <= HIGHEST_CLIENT_TYPE) {
            keep(any);
        } else if (size == static_cast<ssize_t>(ServerClientMessage::TEXT_SIZE)) {
            ServerClientMessage message;
            std::memcpy(static_cast<void*>(&message), &any, sizeof message);
            waiting.push_back(message);
        }
    }
}
