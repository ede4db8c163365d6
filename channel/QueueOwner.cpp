// SPDX-License-Identifier: Apache-2.0
#include "channel/QueueOwner.h"

#include "base/FileDescriptor.h"
#include "base/IpcOwner.h"

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>

namespace {

// An abstract socket address: it starts with a zero byte, has no file, and its
// length is part of the address.
struct Address {
    sockaddr_un name = {};
    socklen_t length = 0;
};

Address addressOf(key_t key) {
    struct stat ipcNamespace = {};
    // Without /proc all namespaces share one name. At worst that refuses a service
    // that could have run.
    if (stat("/proc/self/ns/ipc", &ipcNamespace) != 0) {
        ipcNamespace = {};
    }
    Address address;
    address.name.sun_family = AF_UNIX;
    const int written = std::snprintf(address.name.sun_path + 1, sizeof address.name.sun_path - 1,
                                      "lectern-queue-%08x-%llx-%llx", static_cast<unsigned int>(key),
                                      static_cast<unsigned long long>(ipcNamespace.st_dev),
                                      static_cast<unsigned long long>(ipcNamespace.st_ino));
    address.length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1) + static_cast<socklen_t>(written);
    return address;
}

// The kernel keeps this many connections that nobody accepts. Each service that finds the
// queue served leaves one; the first thousands are told by whom.
constexpr int UNACCEPTED = SOMAXCONN;

// The process that listens at the address, as words. Another program may have bound it
// without listening.
std::string holderOf(const Address& address) {
    const lectern::FileDescriptor asker(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    ucred holder = {};
    socklen_t size = sizeof holder;
    if (connect(asker.get(), reinterpret_cast<const sockaddr*>(&address.name), address.length) != 0 ||
        getsockopt(asker.get(), SOL_SOCKET, SO_PEERCRED, &holder, &size) != 0) {
        return "a process that does not tell its number";
    }
    return "process " + std::to_string(holder.pid) + " of user " + std::to_string(holder.uid);
}

void report(const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
    syslog(LOG_ERR, "%s", line.c_str());
}

// Another user that made the queue could read all records and answer them.
bool isForeign(key_t key) {
    const int queue = msgget(key, 0);
    msqid_ds status = {};
    if (queue == -1 || msgctl(queue, IPC_STAT, &status) == -1 || lectern::isOwnIpc(status.msg_perm)) {
        return false;
    }
    report("The message queue belongs to user " + std::to_string(status.msg_perm.cuid) +
           ", so it cannot be served. \"lectern serve\" and isolated services have a queue of their own.");
    return true;
}

} // namespace

bool QueueOwner::acquire(char project) {
    const key_t key = ftok("/tmp", project);
    const Address address = addressOf(key);
    mSocket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (mSocket == -1) {
        std::perror("socket");
        return false;
    }
    if (bind(mSocket, reinterpret_cast<const sockaddr*>(&address.name), address.length) == -1) {
        if (errno == EADDRINUSE) {
            report("Another service already serves the message queue: " + holderOf(address) +
                   ". \"lectern serve\" and isolated services have a queue of their own.");
        } else {
            std::perror("bind");
        }
        return false;
    }
    (void)listen(mSocket, UNACCEPTED); // only for later services, which want to know whose the queue is
    return !isForeign(key);
}

QueueOwner::~QueueOwner() {
    if (mSocket != -1) {
        close(mSocket);
    }
}
