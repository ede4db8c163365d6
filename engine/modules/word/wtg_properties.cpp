// SPDX-License-Identifier: Apache-2.0
// What the document says of itself.

#include "engine/modules/Arrays.h"
#include "engine/modules/Utf16.h"
#include "engine/modules/word/WordHandle.h"
#include "modules/WordToGoModule.h"

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

template<class Method>
std::int32_t getText(void* doc, std::uint16_t* text, std::int32_t capacityBytes, std::int32_t* length,
                     Method method) {
    if (!isTextBuffer(text, capacityBytes, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        GLibHolder<GVariant> whole;
        const std::int32_t result = callEngine(handle, method, std::tuple<>(), out(whole));
        if (result == MODULE_OK) {
            deliverText(elementsOf<std::uint16_t>(whole.get()), text,
                        capacityBytes / static_cast<std::int32_t>(sizeof(std::uint16_t)), length);
        }
        return result;
    });
}

} // namespace

int32_t wtg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return getText(doc, text, capacity_bytes, length, &lectern_ipc_word_call_name_sync);
}

int32_t wtg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return getText(doc, text, capacity_bytes, length, &lectern_ipc_word_call_author_sync);
}

int32_t wtg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return getText(doc, text, capacity_bytes, length, &lectern_ipc_word_call_description_sync);
}

int32_t wtg_get_document_creation_date(void* doc, time_t* time) {
    return getNumber<gint64>(doc, &lectern_ipc_word_call_creation_date_sync, time);
}

int32_t wtg_get_document_last_saved_date(void* doc, time_t* time) {
    return getNumber<gint64>(doc, &lectern_ipc_word_call_last_saved_date_sync, time);
}

int32_t wtg_word_count(void* doc, int32_t* count) {
    return getNumber<gint>(doc, &lectern_ipc_word_call_word_count_sync, count);
}
