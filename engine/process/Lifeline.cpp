// SPDX-License-Identifier: Apache-2.0
#include "engine/process/Lifeline.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace lectern::engine {
namespace {

void waitForHangUp(const FileDescriptor& socket) {
    pollfd hangUp{socket.get(), POLLRDHUP, 0};
    while (poll(&hangUp, 1, -1) < 0 && errno == EINTR) {
    }
}

} // namespace

void emptyFolder(const std::string& folder) {
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(folder, ignored), end; entry != end;
         entry.increment(ignored)) {
        std::filesystem::remove_all(entry->path(), ignored);
    }
}

void startLifeline(int socket, const std::string& folder) {
    // A duplicate, because the connection closes its descriptor when it fails.
    FileDescriptor own(fcntl(socket, F_DUPFD_CLOEXEC, 0));
    std::thread([own = std::move(own), folder] {
        waitForHangUp(own);
        emptyFolder(folder);
        _exit(0);
    }).detach();
}

} // namespace lectern::engine
