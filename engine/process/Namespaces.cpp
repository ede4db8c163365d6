// SPDX-License-Identifier: Apache-2.0
#include "engine/process/Namespaces.h"

#include "base/FileDescriptor.h"
#include "engine/process/Capabilities.h"

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace lectern::engine {
namespace {

constexpr int NETWORK_AND_IPC = CLONE_NEWNET | CLONE_NEWIPC;

bool writeFile(const char* path, const std::string& text) {
    const FileDescriptor file(open(path, O_WRONLY | O_CLOEXEC));
    return file && write(file.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

std::string mapOfOne(unsigned id) {
    return std::to_string(id) + " " + std::to_string(id) + " 1";
}

} // namespace

Namespaces enterNamespaces() {
    if (unshare(NETWORK_AND_IPC) == 0) {
        return Namespaces::OfNetwork;
    }
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (mayReadEveryFile() || unshare(CLONE_NEWUSER | NETWORK_AND_IPC) != 0) {
        return Namespaces::None;
    }
    // The group can be mapped only after setgroups was denied.
    const bool mapped = writeFile("/proc/self/setgroups", "deny") &&
                        writeFile("/proc/self/gid_map", mapOfOne(group)) &&
                        writeFile("/proc/self/uid_map", mapOfOne(user));
    if (!mapped) {
        std::perror("engine: user namespace");
    }
    return mapped ? Namespaces::OfUserToo : Namespaces::Failed;
}

} // namespace lectern::engine
