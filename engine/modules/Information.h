// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "engine/modules/Arrays.h"
#include "engine/modules/DocumentHandle.h"
#include "engine/modules/Utf16.h"

#include <cstdint>
#include <ctime>
#include <tuple>

namespace lectern::engine {

// The document's information, which the engine sends in one answer.
struct Information {
    GLibHolder<GVariant> name;
    GLibHolder<GVariant> author;
    GLibHolder<GVariant> description;
    gint64 created = 0;
    gint64 lastSaved = 0;
};

// The property getters of one kind of document; Method is the generated
// function that requests the information.
template<class Handle, auto Method>
struct InformationOf {
    static std::int32_t text(void* doc, std::uint16_t* text, std::int32_t capacityBytes, std::int32_t* length,
                             GLibHolder<GVariant> Information::*which) {
        if (!isTextBuffer(text, capacityBytes, length)) {
            return MODULE_BAD_ARGUMENT;
        }
        return get(doc, [&](const Information& information) {
            deliverText(elementsOf<std::uint16_t>((information.*which).get()), text,
                        capacityBytes / static_cast<std::int32_t>(sizeof(std::uint16_t)), length);
        });
    }
    static std::int32_t time(void* doc, time_t* time, gint64 Information::*which) {
        if (time == nullptr) {
            return MODULE_BAD_ARGUMENT;
        }
        return get(doc,
                   [&](const Information& information) { *time = static_cast<time_t>(information.*which); });
    }

private:
    template<class Use>
    static std::int32_t get(void* doc, Use use) {
        return onHandle<Handle>(doc, [&](Handle& handle) {
            Information information;
            const std::int32_t result =
                callEngine(handle, Method, std::tuple<>(), out(information.name), out(information.author),
                           out(information.description), &information.created, &information.lastSaved);
            if (result == MODULE_OK) {
                use(information);
            }
            return result;
        });
    }
};

} // namespace lectern::engine
