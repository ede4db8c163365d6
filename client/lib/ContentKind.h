// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Document.h>

#include <string>

namespace lectern {

// The kind of a document by the beginning of its file, and by its name where the
// beginning does not tell. Unknown when neither does, or there is no such file.
DocumentKind contentKind(const std::string& path);

// The kind of a content type, such as "application/rtf".
DocumentKind kindOfType(const char* contentType);

} // namespace lectern
