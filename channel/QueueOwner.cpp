// SPDX-License-Identifier: Apache-2.0
#include "channel/QueueOwner.h"

#include <sys/ipc.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
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

} // namespace

bool QueueOwner::acquire(char project) {
    const Address address = addressOf(ftok("/tmp", project));
    mSocket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (mSocket == -1) {
        std::perror("socket");
        return false;
    }
    if (bind(mSocket, reinterpret_cast<const sockaddr*>(&address.name), address.length) == -1) {
        if (errno == EADDRINUSE) {
            std::fprintf(stderr, "Another service already serves the message queue.\n");
        } else {
            std::perror("bind");
        }
        return false;
    }
    return true;
}

QueueOwner::~QueueOwner() {
    if (mSocket != -1) {
        close(mSocket);
    }
}
