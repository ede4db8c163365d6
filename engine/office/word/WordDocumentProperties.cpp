// SPDX-License-Identifier: Apache-2.0
// The document's properties.
#include "engine/office/Properties.h"
#include "engine/office/word/WordDocumentPrivate.h"

namespace lectern::engine {

int32_t WordDocument::name(std::u16string& text) {
    return guarded([&]() -> int32_t {
        text = toText(documentProperties(mPrivate->document.model)->getTitle());
        return MODULE_OK;
    });
}

int32_t WordDocument::author(std::u16string& text) {
    return guarded([&]() -> int32_t {
        text = toText(documentProperties(mPrivate->document.model)->getAuthor());
        return MODULE_OK;
    });
}

int32_t WordDocument::description(std::u16string& text) {
    return guarded([&]() -> int32_t {
        text = toText(documentProperties(mPrivate->document.model)->getDescription());
        return MODULE_OK;
    });
}

int32_t WordDocument::creationDate(int64_t& time) {
    return guarded([&]() -> int32_t {
        time = toUnixTime(documentProperties(mPrivate->document.model)->getCreationDate());
        return MODULE_OK;
    });
}

int32_t WordDocument::lastSavedDate(int64_t& time) {
    return guarded([&]() -> int32_t {
        time = toUnixTime(documentProperties(mPrivate->document.model)->getModificationDate());
        return MODULE_OK;
    });
}

int32_t WordDocument::wordCount(int32_t& count) {
    return guarded([&]() -> int32_t {
        count = property<sal_Int32>(propertiesOf(mPrivate->document.model), "WordCount");
        return MODULE_OK;
    });
}

} // namespace lectern::engine
