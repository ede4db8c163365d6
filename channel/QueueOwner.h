// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// Prevents a second service from serving the same queue. The queue has the same key
// for all services on a machine, so two services would take each other's records,
// and a queue does not know its readers. Therefore the service binds an abstract
// socket, whose name contains the queue's key and the identity of the IPC
// namespace. The system releases the name when the process ends in any way.
class QueueOwner {
public:
    QueueOwner() = default;
    ~QueueOwner();
    QueueOwner(const QueueOwner&) = delete;
    QueueOwner& operator=(const QueueOwner&) = delete;

    // Becomes the owner of the queue of this project (see DocAdapterMessageQueue). False,
    // with a line on standard error, if no socket can be created, and also with one in
    // the system log if another process is the owner, whose number and user it tells, or
    // if the queue belongs to another user.
    [[nodiscard]] bool acquire(char project);

private:
    int mSocket = -1;
};
