// SPDX-License-Identifier: Apache-2.0
// The presentation's properties.

#include "engine/modules/Information.h"
#include "engine/modules/slide/SlideHandle.h"

using namespace lectern::engine;

using Getter = InformationOf<SlideHandle, &lectern_ipc_slide_call_information_sync>;

int32_t sstg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return Getter::text(doc, text, capacity_bytes, length, &Information::name);
}

int32_t sstg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return Getter::text(doc, text, capacity_bytes, length, &Information::author);
}

int32_t sstg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return Getter::text(doc, text, capacity_bytes, length, &Information::description);
}

int32_t sstg_get_document_creation_date(void* doc, time_t* time) {
    return Getter::time(doc, time, &Information::created);
}

int32_t sstg_get_document_last_saved_date(void* doc, time_t* time) {
    return Getter::time(doc, time, &Information::lastSaved);
}
