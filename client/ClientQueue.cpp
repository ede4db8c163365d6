// SPDX-License-Identifier: Apache-2.0
#include "client/ClientQueue.h"

#include <sys/ipc.h>
#include <sys/msg.h>

#include <cerrno>
#include <thread>

#include "client/Errors.h"

namespace lectern {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::microseconds betweenTries{500};

} // namespace

Failure ClientQueue::connect() {
    const int failure = Open(openFlags, projectId);
    if (failure != 0) {
        return systemError("cannot open the message queue", failure);
    }
    return std::nullopt;
}

Failure ClientQueue::post(const ClientServerMessage& message, std::chrono::milliseconds patience) const {
    const Clock::time_point deadline = Clock::now() + patience;
    while (msgsnd(mQueueId, &message, ClientServerMessage::textSize, IPC_NOWAIT) != 0) {
        if (errno != EAGAIN && errno != EINTR) {
            return systemError("the message queue is gone; open the document again", errno);
        }
        if (Clock::now() >= deadline) {
            return Error{Error::Kind::timedOut, "the service does not read its message queue", EAGAIN, {}};
        }
        std::this_thread::sleep_for(betweenTries);
    }
    return std::nullopt;
}

bool ClientQueue::tryPost(const ServerClientMessage& message) const {
    return msgsnd(mQueueId, &message, ServerClientMessage::textSize, IPC_NOWAIT) == 0;
}

bool ClientQueue::settle(std::chrono::milliseconds patience) const {
    const Clock::time_point deadline = Clock::now() + patience;
    msqid_ds status{};
    while (msgctl(mQueueId, IPC_STAT, &status) == 0 && status.msg_qnum != 0) {
        if (Clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(betweenTries);
    }
    return true;
}

} // namespace lectern
