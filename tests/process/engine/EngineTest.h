// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/process/engine/EngineHost.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace lectern::test {

// Tests of the word module with engines of the fake office suite. All their
// files are in a folder of the test.
class EngineTest : public testing::Test {
public:
    // Checks repeatedly until the condition holds; returns false after 20 s.
    static bool waitUntil(const std::function<bool()>& condition);

protected:
    EngineTest();
    ~EngineTest() override;

    // Writes a document and returns its path. tests/fakes/office/FakeOffice.cpp
    // describes the contents.
    std::string write(const std::string& name, const std::string& contents) const;
    const std::string& documents() const { return mDocuments; }
    // The folder in which engines create their temporary folders.
    const std::string& temporary() const { return mTemporary; }

    // Opens a document with the given contents; a failure fails the test.
    void open(Document& document, const std::string& contents) const;
    // Also sets a buffer and lays the document out.
    void show(Document& document, std::vector<std::uint32_t>& pixels, std::int32_t width,
              std::int32_t height) const;

    // Sets an environment variable until the end of the test.
    void setVariable(const char* name, const std::string& value);

    // The engines of this test.
    std::vector<EngineInfo> engines() const;
    // Ends the only engine.
    void killEngine() const;
    // The engine of the document that was opened last.
    EngineInfo engineOfDocument() const;
    // Waits until this test has so many engines; returns false after a time limit.
    bool waitForEngines(std::size_t count) const;
    // The fork server of this test. REQUIRES: a document was opened.
    pid_t forkServer() const;

private:
    std::string mFolder;
    std::string mDocuments;
    std::string mTemporary;
    std::vector<const char*> mVariables;
};

// Number of entries in a folder.
std::size_t entriesIn(const std::string& folder);
// Number of open file descriptors of this process.
std::size_t openFiles();
// The text that a module wrote to a buffer.
std::u16string textOf(const std::vector<std::uint16_t>& buffer);

} // namespace lectern::test
