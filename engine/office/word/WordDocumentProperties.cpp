// SPDX-License-Identifier: Apache-2.0
// The document's properties.
#include "engine/office/Properties.h"
#include "engine/office/word/WordDocumentPrivate.h"

namespace lectern::engine {

int32_t WordDocument::information(DocumentInformation& information) {
    return guardedInOffice([&]() -> int32_t {
        information = informationOf(mPrivate->document.model);
        return MODULE_OK;
    });
}

int32_t WordDocument::wordCount(int32_t& count) {
    return guardedInOffice([&]() -> int32_t {
        count = property<sal_Int32>(propertiesOf(mPrivate->document.model), "WordCount");
        return MODULE_OK;
    });
}

} // namespace lectern::engine
