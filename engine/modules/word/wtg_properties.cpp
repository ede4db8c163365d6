// SPDX-License-Identifier: Apache-2.0
// The document's properties.

#include "engine/modules/Information.h"
#include "engine/modules/word/WordHandle.h"

using namespace lectern::engine;

using Getter = InformationOf<WordHandle, &lectern_ipc_word_call_information_sync>;

int32_t wtg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return Getter::text(doc, text, capacity_bytes, length, &Information::name);
}

int32_t wtg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return Getter::text(doc, text, capacity_bytes, length, &Information::author);
}

int32_t wtg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return Getter::text(doc, text, capacity_bytes, length, &Information::description);
}

int32_t wtg_get_document_creation_date(void* doc, time_t* time) {
    return Getter::time(doc, time, &Information::created);
}

int32_t wtg_get_document_last_saved_date(void* doc, time_t* time) {
    return Getter::time(doc, time, &Information::lastSaved);
}

int32_t wtg_word_count(void* doc, int32_t* count) {
    return getNumber<gint>(doc, &lectern_ipc_word_call_word_count_sync, count);
}
