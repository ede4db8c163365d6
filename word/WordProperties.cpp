// SPDX-License-Identifier: Apache-2.0
// The document's properties, and the selection.
#include "view/DocumentProperties.h"
#include "word/Word.h"

std::string Word::getDocProperties() {
    const JsonOwner properties = documentProperties(
        mDocument,
        {mModule.wtg_get_document_name, mModule.wtg_get_document_author, mModule.wtg_get_document_description,
         mModule.wtg_get_document_last_saved_date, mModule.wtg_get_document_creation_date});
    int32_t words = 0;
    if (mDocument != nullptr) {
        mModule.wtg_word_count(mDocument, &words);
    }
    if (properties != nullptr) {
        json_object_object_add(properties.get(), "wordcnt", json_object_new_int(words));
    }
    return jsonText(properties);
}

int Word::clearSelection() {
    if (mDocument != nullptr) {
        mModule.wtg_clear_selection(mDocument);
    }
    InvalidateScreen();
    return 0;
}
