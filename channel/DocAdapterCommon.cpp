// SPDX-License-Identifier: Apache-2.0
#include "channel/DocAdapterCommon.h"

#include "channel/QueueRecord.h"

#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <cstdio>

namespace {

constexpr char QUEUE_PATH[] = "/tmp";
constexpr unsigned int RETRY_MS = 10;

constexpr char CLIENT_READ_FAILED[] = "Can't read message from client";
constexpr char SERVER_READ_FAILED[] = "Can't read message from server";
constexpr char SEND_FAILED[] = "Failure sending messages";

} // namespace

int DocAdapterMessageQueue::Open(int flags, char project) {
    mQueueId = msgget(ftok(QUEUE_PATH, project), flags);
    if (!isOpen()) {
        const int error = errno;
        std::perror("msgget");
        return error;
    }
    return 0;
}

int DocAdapterMessageQueue::Drain() {
    if (!isOpen()) {
        return ENODEV;
    }
    struct {
        long type;
        unsigned char text[ClientServerMessage::TEXT_SIZE];
    } scrap = {};
    while (msgrcv(mQueueId, &scrap, sizeof scrap.text, 0, IPC_NOWAIT | MSG_NOERROR) >= 0) {
    }
    return 0;
}

int DocAdapterMessageQueue::Remove() {
    if (!isOpen()) {
        return 0;
    }
    if (msgctl(mQueueId, IPC_RMID, nullptr) == -1) {
        return errno;
    }
    mQueueId = NOT_OPEN;
    return 0;
}

int DocAdapterMessageQueue::fail(const char* what, int id) {
    const int error = errno;
    std::perror(what);
    // The error is EIDRM if the queue was removed during the call, EINVAL if it was
    // removed before. Another thread may have opened a new queue in the meantime.
    if (error == EIDRM || error == EINVAL) {
        mQueueId.compare_exchange_strong(id, NOT_OPEN);
    }
    errno = error;
    return -1;
}

long DocAdapterMessageQueue::ReadMessage(long type, ClientServerMessage& message) {
    const int id = mQueueId;
    const ssize_t size = TakeRecord(id, type, 0, message);
    if (size == -1) {
        return fail(CLIENT_READ_FAILED, id);
    }
    ++mMessagesRead;
    return size;
}

long DocAdapterMessageQueue::ReadMessage(long type, ServerClientMessage& message, unsigned int timeoutMs) {
    const int id = mQueueId;
    const int flags = timeoutMs == TIMEOUT_INFINITE ? 0 : IPC_NOWAIT;
    unsigned int elapsedMs = 0;
    ssize_t size = 0;
    while ((size = TakeRecord(id, type, flags, message)) == -1) {
        if (errno != ENOMSG || timeoutMs == 0) {
            return fail(SERVER_READ_FAILED, id);
        }
        usleep(RETRY_MS * 1000);
        elapsedMs += RETRY_MS;
        if (timeoutMs <= elapsedMs) {
            errno = ENOMSG;
            return fail(SERVER_READ_FAILED, id);
        }
    }
    ++mMessagesRead;
    return size;
}

template<typename Record>
int DocAdapterMessageQueue::send(const Record& message) {
    const int id = mQueueId;
    if (message.type < 1) { // msgsnd's EINVAL for it would look like a removed queue
        errno = EINVAL;
        return fail(SEND_FAILED, NOT_OPEN);
    }
    if (msgsnd(id, &message, Record::TEXT_SIZE, 0) == -1) {
        return fail(SEND_FAILED, id);
    }
    ++mMessagesSent;
    return 0;
}

int DocAdapterMessageQueue::SendMessage(const ServerClientMessage& message) {
    return send(message);
}

int DocAdapterMessageQueue::SendMessage(const ClientServerMessage& message) {
    return send(message);
}

int DocAdapterMessageQueue::trace_msg_queue(const char* /*text*/) {
    msqid_ds status = {};
    return msgctl(mQueueId, IPC_STAT, &status);
}

int MutexLock::lock(pthread_mutex_t* mutex) {
    assert(mutex != __null); // NOLINT(modernize-use-nullptr): the text is part of the interface
    const int result = pthread_mutex_lock(mutex);
    if (result != 0) {
        std::fprintf(stderr, "Unable to acquire mutex: %d.", result);
    } else {
        mMutex = mutex;
    }
    return result;
}

MutexLock::~MutexLock() {
    if (mMutex != nullptr) {
        pthread_mutex_unlock(mMutex);
    }
}
