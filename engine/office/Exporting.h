// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/AnyFile.h"
#include "engine/office/Office.h"
#include "engine/protocol/Vocabulary.h"

#include <string>

namespace lectern::engine {

// Writes a document in another format to the file `target`, which is created or
// overwritten: the pages as they are printed, or the text of all that is visible, in
// UTF-8. Loads the document anew, because an open one is laid out for a screen. Returns a
// module_result code.
int32_t exportFile(Office& office, const AnyFile& file, DocumentKind kind, ExportFormat format,
                   const std::string& target);

} // namespace lectern::engine
