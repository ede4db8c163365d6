// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace lectern::engine::test {

// Text documents of many kinds in both formats: the samples, long ones, and one
// with notes, pictures, tables and a header. Created once per process.
std::vector<std::filesystem::path> madeDocuments();

// The text documents in and below the folder that LECTERN_CORPUS names, sorted.
// A folder without any fails the test.
std::vector<std::filesystem::path> collectedDocuments();

// Saves a copy of a document in another format with the suite.
std::filesystem::path savedAs(const std::filesystem::path& path, const std::string& extension);

} // namespace lectern::engine::test
