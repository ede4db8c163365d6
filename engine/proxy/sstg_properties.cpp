// SPDX-License-Identifier: Apache-2.0
// What the presentation says of itself.

#include "engine/proxy/SlideHandle.h"

using namespace lectern::engine;

namespace {

// One answer has it all.
struct Information {
    Information() = default;
    ~Information() {
        for (GVariant* text : {name, author, description}) {
            if (text != nullptr) {
                g_variant_unref(text);
            }
        }
    }
    Information(const Information&) = delete;
    Information& operator=(const Information&) = delete;

    GVariant* name = nullptr;
    GVariant* author = nullptr;
    GVariant* description = nullptr;
    gint64 created = 0;
    gint64 lastSaved = 0;
};

template<class Use>
std::int32_t withInformation(void* doc, Use use) {
    return onSlideshow(doc, [&](SlideHandle& handle) {
        Information information;
        const std::int32_t result = callEngine(
            handle, &lectern_ipc_slide_call_information_sync, std::tuple<>(), &information.name,
            &information.author, &information.description, &information.created, &information.lastSaved);
        if (result == MODULE_OK) {
            use(information);
        }
        return result;
    });
}

std::int32_t getText(void* doc, std::uint16_t* text, std::int32_t capacityBytes, std::int32_t* length,
                     GVariant* Information::*which) {
    if (!isTextBuffer(text, capacityBytes, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    return withInformation(doc, [&](const Information& information) {
        deliverText(elementsOf<std::uint16_t>(information.*which), text,
                    capacityBytes / static_cast<std::int32_t>(sizeof(std::uint16_t)), length);
    });
}

std::int32_t getTime(void* doc, time_t* time, gint64 Information::*which) {
    if (time == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return withInformation(
        doc, [&](const Information& information) { *time = static_cast<time_t>(information.*which); });
}

} // namespace

int32_t sstg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return getText(doc, text, capacity_bytes, length, &Information::name);
}

int32_t sstg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return getText(doc, text, capacity_bytes, length, &Information::author);
}

int32_t sstg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return getText(doc, text, capacity_bytes, length, &Information::description);
}

int32_t sstg_get_document_creation_date(void* doc, time_t* time) {
    return getTime(doc, time, &Information::created);
}

int32_t sstg_get_document_last_saved_date(void* doc, time_t* time) {
    return getTime(doc, time, &Information::lastSaved);
}
