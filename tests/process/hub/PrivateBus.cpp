// SPDX-License-Identifier: Apache-2.0
#include "tests/process/hub/PrivateBus.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

// Waits until the daemon has printed its address and can be reached; returns
// false when it ended instead.
bool waitForLine(int fd) {
    char byte = 0;
    while (read(fd, &byte, 1) == 1) {
        if (byte == '\n') {
            return true;
        }
    }
    return false;
}

} // namespace

PrivateBus::PrivateBus() {
    std::string pattern = (std::filesystem::temp_directory_path() / "hubtest-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        return;
    }
    mFolder = pattern;
    writeConfiguration();
    start();
}

PrivateBus::~PrivateBus() {
    stop();
    std::error_code ignored;
    if (!mFolder.empty()) {
        std::filesystem::remove_all(mFolder, ignored);
    }
}

void PrivateBus::writeConfiguration() const {
    std::filesystem::create_directory(mFolder + "/services");
    std::ofstream(mFolder + "/bus.conf")
        << "<busconfig><type>session</type>"
        << "<listen>" << address() << "</listen>"
        << "<servicedir>" << mFolder << "/services</servicedir>"
        << "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
        << "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy>"
        // As on a session bus; the default is 128.
        << "<limit name=\"max_replies_per_connection\">50000</limit>"
        << "</busconfig>\n";
}

void PrivateBus::start() {
    const std::string configuration = "--config-file=" + mFolder + "/bus.conf";
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return;
    }
    mDaemon = fork();
    if (mDaemon == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(ends[1], STDOUT_FILENO);
        execlp("dbus-daemon", "dbus-daemon", configuration.c_str(), "--print-address", "--nofork", nullptr);
        _exit(127);
    }
    close(ends[1]);
    const bool ready = waitForLine(ends[0]);
    close(ends[0]);
    if (!ready) {
        stop();
    }
}

void PrivateBus::addService(const std::string& name, const std::string& program) const {
    std::ofstream(mFolder + "/services/" + name + ".service")
        << "[D-BUS Service]\nName=" << name << "\nExec=" << program << "\n";
}

void PrivateBus::becomeSessionBus() const {
    setenv("DBUS_SESSION_BUS_ADDRESS", address().c_str(), 1);
    unsetenv("DBUS_STARTER_ADDRESS");
    unsetenv("DBUS_STARTER_BUS_TYPE");
}

void PrivateBus::stop() {
    if (mDaemon <= 0) {
        return;
    }
    kill(mDaemon, SIGKILL);
    waitpid(mDaemon, nullptr, 0);
    mDaemon = -1;
}
