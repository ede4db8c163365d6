// SPDX-License-Identifier: Apache-2.0
// What code inside of an engine can reach: a document whose name starts with "probe-" is
// a list of attempts, which the engine makes after it has opened it.
#pragma once

#include <string>

namespace lectern::test {

// One attempt for each line of a probe document: "NAME" or "NAME=DETAIL", the details
// being paths, process ids or numbers. The names are those in Attempts.cpp.
constexpr const char* PROBE_PREFIX = "probe-";
// What a path starts with that lies in the engine's folder.
constexpr const char* OWN_FOLDER = "OWN";
// The file in the engine's folder with an outcome for each line: "allowed", or the name
// of the error, or a number where the attempt counts.
constexpr const char* OUTCOMES = "outcomes";

// Makes one attempt and takes it back where it succeeds.
std::string outcomeOf(const std::string& name, const std::string& text);

} // namespace lectern::test
