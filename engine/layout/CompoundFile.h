// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Empties the streams of a compound file (.doc, .xls, .ppt) whose directory
// entries claim more bytes than the whole file has. Other programs ignore such a
// stream; the suite refuses the file. Returns whether a stream was emptied;
// other files are not changed.
bool emptyImpossibleStreams(std::string& file);

} // namespace lectern::engine
