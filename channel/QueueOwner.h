// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// Keeps a second service away from the queue. Its key is the machine's, so two
// services would steal each other's records; a queue, though, cannot tell who
// reads it. So whoever serves it holds an abstract socket for its life, whose
// name is made of the queue's key and the identity of the IPC namespace. The
// system lets go of it however the process ends.
class QueueOwner {
public:
    QueueOwner() = default;
    ~QueueOwner();
    QueueOwner(const QueueOwner&) = delete;
    QueueOwner& operator=(const QueueOwner&) = delete;

    // Takes the queue of this project (see DocAdapterMessageQueue). False, after a line on
    // standard error, when another process has it or the system has no socket.
    [[nodiscard]] bool acquire(char project);

private:
    int mSocket = -1;
};
