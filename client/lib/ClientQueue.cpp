// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ClientQueue.h"

#include "channel/QueueRecord.h"
#include "client/lib/Errors.h"

#include <pthread.h>
#include <sys/ipc.h>
#include <sys/msg.h>

#include <cerrno>
#include <thread>

namespace lectern {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::microseconds BETWEEN_TRIES{500};

} // namespace

Failure ClientQueue::connect() {
    const int failure = Open(OPEN_FLAGS, PROJECT_ID);
    if (failure != 0) {
        return systemError("cannot open the message queue", failure);
    }
    return std::nullopt;
}

Failure ClientQueue::post(const ClientServerMessage& message, std::chrono::milliseconds patience,
                          const std::function<Failure()>& giveUp) const {
    const Clock::time_point deadline = Clock::now() + patience;
    while (msgsnd(mQueueId, &message, ClientServerMessage::TEXT_SIZE, IPC_NOWAIT) != 0) {
        if (errno != EAGAIN && errno != EINTR) {
            return systemError("the message queue is gone; open the document again", errno);
        }
        if (Failure reason = giveUp ? giveUp() : std::nullopt) {
            return reason;
        }
        if (Clock::now() >= deadline) {
            return Error{Error::Kind::TimedOut, "the service does not read its message queue", EAGAIN, {}};
        }
        std::this_thread::sleep_for(BETWEEN_TRIES);
    }
    return std::nullopt;
}

bool ClientQueue::tryTake(long address, ServerClientMessage& message) {
    const int id = mQueueId;
    if (TakeRecord(id, address, IPC_NOWAIT, message) < 0) {
        closeIfGone(id);
        return false;
    }
    return true;
}

// The thread is cancelled nowhere else, where it could hold a lock. No object is to be
// destroyed here or in the callers then: AddressSanitizer cannot follow that.
bool ClientQueue::take(long address, ServerClientMessage& message) {
    const int id = mQueueId;
    int before = PTHREAD_CANCEL_DISABLE;
    pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &before);
    const ssize_t size = TakeRecord(id, address, 0, message);
    pthread_setcancelstate(before, nullptr);
    if (size < 0) {
        closeIfGone(id);
        return false;
    }
    return true;
}

void ClientQueue::closeIfGone(int id) {
    if (errno == EIDRM || errno == EINVAL) {
        mQueueId.compare_exchange_strong(id, NOT_OPEN);
    }
}

bool ClientQueue::tryPost(const ServerClientMessage& message) const {
    return msgsnd(mQueueId, &message, ServerClientMessage::TEXT_SIZE, IPC_NOWAIT) == 0;
}

bool ClientQueue::settle(std::chrono::milliseconds patience,
                         const std::function<bool()>& whileWaiting) const {
    const Clock::time_point deadline = Clock::now() + patience;
    msqid_ds status{};
    while (!whileWaiting || whileWaiting()) {
        if (msgctl(mQueueId, IPC_STAT, &status) != 0 || status.msg_qnum == 0) {
            return true;
        }
        if (Clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(BETWEEN_TRIES);
    }
    return false;
}

} // namespace lectern
