// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// The file descriptors that an engine process is started with, beside the
// standard three. Its only argument is the path of its temporary folder.
constexpr int kEngineSocket = 3; // stream socket, the other end is the service's
constexpr int kEngineFolder = 4; // the temporary folder, locked while anyone holds it

// Object paths of the interfaces in process.xml, word.xml, sheet.xml and slide.xml.
constexpr const char* kProcessPath = "/process";
constexpr const char* kWordPath = "/word";
constexpr const char* kSheetPath = "/sheet";
constexpr const char* kSlidePath = "/slide";

} // namespace lectern::engine
