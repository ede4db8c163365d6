// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/process/engine/EngineHost.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace lectern::test {

// Tests that drive the word module with engines of the fake office suite.
// Everything lies in a folder of the test's own.
class EngineTest : public testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    // Writes a document and gives its path. The contents are those of
    // tests/fakes/office/FakeOffice.cpp.
    std::string write(const std::string& name, const std::string& contents) const;
    const std::string& documents() const { return mDocuments; }
    // Where engines make their temporary folders.
    const std::string& temporary() const { return mTemporary; }

    // Opens a document with the given contents, which must succeed.
    void open(Document& document, const std::string& contents) const;
    // ... and gives it a buffer, laid out.
    void show(Document& document, std::vector<std::uint32_t>& pixels, std::int32_t width,
              std::int32_t height) const;

    // The environment variable holds until the end of the test.
    void setVariable(const char* name, const std::string& value);

    // The engines of this test, be it the spare or a document's.
    std::vector<EngineInfo> engines() const;
    // The one of the document that was opened last.
    EngineInfo engineOfDocument() const;
    // Until a spare is ready; false when that takes too long.
    bool waitForSpare() const;
    static bool isSpare(const EngineInfo& engine);

    // Looks again and again until the condition holds; false after 20 s.
    static bool waitUntil(const std::function<bool()>& condition);

private:
    std::string mFolder;
    std::string mDocuments;
    std::string mTemporary;
    std::vector<const char*> mVariables;
};

// Entries in a folder.
std::size_t entriesIn(const std::string& folder);
// Open file descriptors of this process.
std::size_t openFiles();
// A text that a module wrote.
std::u16string textOf(const std::vector<std::uint16_t>& buffer);

} // namespace lectern::test
