// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Bus.h"
#include "tests/system/support/Client.h"
#include "tests/system/support/Subprocess.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

// The real service on a bus of the test's own, in an IPC namespace of the
// test's own. At the end nothing may be left: no process, no System V object
// but the queue, no folder of an engine's.
class ServiceTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts (another) service and waits until it has its name.
    void startService(const std::map<std::string, std::string>& environment = {});
    // Ends the service in the orderly way; its wait status.
    int stopService();

    // Environment of a service on the test's bus.
    std::map<std::string, std::string> serviceEnvironment() const;
    std::string syslogText() const { return readFile(folder.path() + "/syslog"); }
    static std::string sample(const std::string& name);
    // A generated .docx of about so many printed pages, with `word` put in `hits` times.
    std::string longDocument(int pages, const std::string& word = "", int hits = 0) const;
    // A generated .docx with links, notes and searchable words.
    std::string linkedDocument() const;

    // The file that a script of the samples' folder makes; its path is put in
    // for the argument "OUT".
    std::string generated(const std::string& name, const std::string& script,
                          std::vector<std::string> arguments) const;

    // Processes named like this below the test's own, oldest first.
    static std::vector<pid_t> descendants(const std::string& name);

    TemporaryFolder folder;
    std::unique_ptr<PrivateBus> bus;
    std::unique_ptr<Subprocess> service;
    std::unique_ptr<BusConnection> client;
    std::unique_ptr<Queue> queue;
};

// Waits, by short looks, until a condition holds; false after the time. For
// things that send no event, such as the end of a process that is not a child.
bool eventually(const std::function<bool()>& condition, int limitMs = 10000);
