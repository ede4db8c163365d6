// SPDX-License-Identifier: Apache-2.0
// A message bus for one test.
#pragma once

#include <sys/types.h>

#include <string>

// Runs a dbus-daemon with its socket, configuration and service files in a
// temporary folder. The destructor ends the daemon, waits for it and removes
// the folder.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    bool isRunning() const { return mDaemon > 0; }
    std::string address() const { return "unix:path=" + mFolder + "/bus"; }

    // Makes the bus start a program when the name is called.
    void addService(const std::string& name, const std::string& program) const;

    // Makes the bus the session bus of this process and of those that it starts.
    void becomeSessionBus() const;

    // Ends the daemon while it is in use.
    void stop();

private:
    void writeConfiguration() const;
    void start();

    std::string mFolder;
    pid_t mDaemon = -1;
};
