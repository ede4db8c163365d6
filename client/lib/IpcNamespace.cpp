// SPDX-License-Identifier: Apache-2.0
#include "client/lib/IpcNamespace.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <string>

namespace lectern {

namespace {

bool writeFile(const char* path, const std::string& text) {
    const FileDescriptor file(open(path, O_WRONLY | O_CLOEXEC));
    return file && write(file.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

std::string mapOfOne(unsigned int id) {
    return std::to_string(id) + " " + std::to_string(id) + " 1";
}

} // namespace

bool isolateIpc() {
    if (unshare(CLONE_NEWIPC) == 0) {
        return true;
    }
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(CLONE_NEWUSER | CLONE_NEWIPC) != 0) {
        return false;
    }
    // The group can be mapped only after setgroups was denied. If a map is
    // refused, the namespace works all the same, but with the overflow id.
    writeFile("/proc/self/setgroups", "deny");
    writeFile("/proc/self/gid_map", mapOfOne(group));
    writeFile("/proc/self/uid_map", mapOfOne(user));
    return true;
}

} // namespace lectern
