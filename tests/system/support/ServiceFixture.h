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

// Runs the real service on the test's own bus and in its own IPC namespace. At
// the end nothing may be left: no process, no System V object except the queue,
// no engine's folder.
class ServiceTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts a service, or another one, and waits until it has its name.
    void startService(const std::map<std::string, std::string>& environment = {});
    // Stops the service normally; returns its wait status.
    int stopService();

    // The environment of a service on the test's bus.
    std::map<std::string, std::string> serviceEnvironment() const;
    std::string syslogText() const { return readFile(folder.path() + "/syslog"); }
    static std::string sample(const std::string& name);
    // A generated .docx of about `pages` printed pages, with `hits` occurrences
    // of `word`.
    std::string longDocument(int pages, const std::string& word = "", int hits = 0) const;
    // A generated .docx with links, notes and words to search.
    std::string linkedDocument() const;

    // The file made by a script of the samples' folder; the argument "OUT"
    // stands for its path.
    std::string generated(const std::string& name, const std::string& script,
                          std::vector<std::string> arguments) const;

    // Descendants of the test process with this name, oldest first.
    static std::vector<pid_t> descendants(const std::string& name);

    TemporaryFolder folder;
    std::unique_ptr<PrivateBus> bus;
    std::unique_ptr<Subprocess> service;
    std::unique_ptr<BusConnection> client;
    std::unique_ptr<Queue> queue;
};

// Checks repeatedly until a condition holds; returns false after the time. For
// things that cause no event, such as the end of a process that is not a child.
bool eventually(const std::function<bool()>& condition, int limitMs = 10000);
