// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// The file descriptors that the fork server inherits from the service besides the
// standard three. Its only argument is the path of its temporary folder. In an engine
// the same number denotes the connection for its calls.
constexpr int ENGINE_SOCKET = 3; // the other end is the service's
constexpr int ENGINE_FOLDER = 4; // the fork server's folder, locked while any process holds it

// The file in an engine's folder that an export writes.
constexpr const char* EXPORT_FILE = "export";

// Object paths of the interfaces in process.xml, word.xml, sheet.xml and slide.xml.
constexpr const char* PROCESS_PATH = "/process";
constexpr const char* WORD_PATH = "/word";
constexpr const char* SHEET_PATH = "/sheet";
constexpr const char* SLIDE_PATH = "/slide";

} // namespace lectern::engine
