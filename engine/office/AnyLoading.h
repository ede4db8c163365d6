// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/AnyFile.h"
#include "engine/office/DocumentLoading.h"
#include "engine/protocol/Vocabulary.h"

namespace lectern::engine {

// Loads a file of any name as a document of a kind. The suite knows most files by their
// contents. The others it gets as copies: texts, lists of values and HTML, which it would
// read otherwise here, and files with the extension of a text that are none. `language`
// and the result as in loadModel. The model may still be of another kind.
int32_t loadAny(Office::Private& office, const AnyFile& file, DocumentKind kind, LoadedModel& model,
                const std::string& language = {});

} // namespace lectern::engine
