// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Bus.h"
#include "tests/system/support/Client.h"
#include "tests/system/support/Subprocess.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

// Runs a service on a private bus for one series of measurements. Stops it when
// destroyed.
class RunningService {
public:
    // Returns when the service has its name on the bus.
    RunningService();
    ~RunningService();
    RunningService(const RunningService&) = delete;
    RunningService& operator=(const RunningService&) = delete;

    // The service's process and all that descend from it.
    std::vector<pid_t> processes() const;
    // Waits until none of these processes works, so that the fork server
    // has prepared what it can.
    void waitUntilQuiet() const;

    const std::string& address() const { return mBus.address(); }
    BusConnection& bus() { return *mClient; }
    Queue& queue() { return *mQueue; }

private:
    TemporaryFolder mFolder;
    PrivateBus mBus;
    std::unique_ptr<Subprocess> mService;
    std::unique_ptr<BusConnection> mClient;
    std::unique_ptr<Queue> mQueue;
};

// The folders in /proc of a process's threads; none when the process has ended.
std::vector<std::string> threadsOf(pid_t process);

// A document whose first frame is painted. The constructor throws if that fails.
class OpenedDocument {
public:
    OpenedDocument(RunningService& service, const std::string& file, int width, int height,
                   const TestDocument::Options& options = {})
        : mService(service), mDocument(service.bus(), service.queue(), file, width, height, options) {
        if (mDocument.docid() < 0 || mDocument.openResult() != 0) {
            throw std::runtime_error("cannot open " + file + ": " + std::to_string(mDocument.openResult()) +
                                     ", " + mDocument.reply());
        }
        if (const int result = mDocument.paint(); result != 0) {
            throw std::runtime_error("cannot paint " + file + ": " + std::to_string(result));
        }
    }

    RunningService& service() { return mService; }
    TestDocument& document() { return mDocument; }

private:
    RunningService& mService;
    TestDocument mDocument;
};
