// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// The file descriptors that an engine process inherits besides the standard
// three. Its only argument is the path of its temporary folder.
constexpr int ENGINE_SOCKET = 3; // stream socket, the other end is the service's
constexpr int ENGINE_FOLDER = 4; // the temporary folder, locked while any process holds it

// Object paths of the interfaces in process.xml, word.xml, sheet.xml and slide.xml.
constexpr const char* PROCESS_PATH = "/process";
constexpr const char* WORD_PATH = "/word";
constexpr const char* SHEET_PATH = "/sheet";
constexpr const char* SLIDE_PATH = "/slide";

} // namespace lectern::engine
