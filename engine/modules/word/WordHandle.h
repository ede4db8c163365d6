// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/SharedSurface.h"
#include "engine/modules/DocumentHandle.h"
#include "engine/modules/EngineCalls.h"
#include "modules/WordToGoModule.h"

#include <cstdint>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace lectern::engine {

// What a wtg_ document handle points to.
struct WordHandle : DocumentHandle {
    std::unique_ptr<SharedSurface> surface; // what the engine paints on; null before the first buffer
    bool painted = false;                   // the surface has been painted at least once
    bool borrowed = false;                  // it shows a secondary document
    std::uint32_t* pixels = nullptr; // the caller's buffer, of the surface's size; null after a refused one

    // What was handed out; each holds until the next call of its function.
    std::vector<wtg_find_result> results;
    std::vector<module_rect> regionRectangles;
    std::vector<wtg_find_region> regions;
    wtg_click_info click{};
    std::vector<std::uint16_t> clickAddress;
    std::vector<module_rect> clickRegions;

    void refreshPixels() const {
        if (painted && pixels != nullptr) {
            surface->copyTo(pixels);
        }
    }
};

// Runs one module function on a document, alone.
template<class Operation>
std::int32_t onDocument(void* doc, Operation operation) {
    return onHandle<WordHandle>(doc, operation);
}

// One typed call of the Word interface, `method` the generated function for
// it. Its outputs are written whenever it was answered. Brings the caller's
// buffer up to date.
template<class Method, class... Inputs, class... Outputs>
std::int32_t callEngine(WordHandle& handle, Method method, std::tuple<Inputs...> inputs,
                        Outputs&&... outputs) {
    gboolean painted = FALSE;
    const std::int32_t result =
        callInterface(handle, handle.engine->word(), method, inputs, &painted, outputs...);
    if (painted != FALSE && handle.surface) {
        handle.painted = true;
        handle.refreshPixels();
    }
    return result;
}

// For functions that only do something.
template<class Method, class... Inputs>
std::int32_t tell(void* doc, Method method, Inputs... inputs) {
    return onDocument(doc, [&](WordHandle& handle) {
        return callEngine(handle, method, std::tuple<Inputs...>(inputs...));
    });
}

// For functions whose only argument besides the document is a place for one
// number; Wire is the number's type in the protocol.
template<class Wire, class Method, class Number>
std::int32_t getNumber(void* doc, Method method, Number* number) {
    if (number == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        Wire value = 0;
        const std::int32_t result = callEngine(handle, method, std::tuple<>(), &value);
        if (result == MODULE_OK) {
            *number = static_cast<Number>(value);
        }
        return result;
    });
}

} // namespace lectern::engine
