// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace lectern::engine::test {

// Texts of many kinds, in the new format and in the old: the samples, long ones,
// and one of notes, pictures, tables and a header. Made once for the process.
std::vector<std::filesystem::path> madeDocuments();

// The texts in and below the folder that LECTERN_CORPUS names in the
// environment, in order. A folder without any fails the test.
std::vector<std::filesystem::path> collectedDocuments();

// A copy of a document in another format, as the suite saves it.
std::filesystem::path savedAs(const std::filesystem::path& path, const std::string& extension);

} // namespace lectern::engine::test
