// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/SharedSurface.h"
#include "engine/modules/Arrays.h"
#include "engine/modules/DocumentHandle.h"
#include "engine/modules/EngineCalls.h"
#include "engine/modules/Utf16.h"
#include "modules/SlideshowToGoModule.h"

#include <cstdint>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

namespace lectern::engine {

// A slide's outline that was handed out: the items point into the texts.
struct OutlineTexts {
    std::vector<std::uint16_t> units; // each text zero-terminated
    std::vector<sstg_outline_item> items;
};

// What an sstg_ document handle points to.
struct SlideHandle : DocumentHandle {
    // What the engine paints on: pictures of slides, one below the other; null
    // before the first slide.
    std::unique_ptr<SharedSurface> surface;
    std::int32_t pictures = 0;

    // What was handed out; each holds until the next call of its function.
    std::vector<sstg_find_info> infos;
    std::vector<module_rect> regionRectangles;
    std::vector<sstg_find_region> regions;
    std::vector<std::int32_t> noteOffsets;
    // ... but for outlines, which hold until they are freed. By their first item.
    std::map<const sstg_outline_item*, OutlineTexts> outlines;
};

template<class Operation>
std::int32_t onSlideshow(void* doc, Operation operation) {
    return onHandle<SlideHandle>(doc, operation);
}

// One typed call of the Slide interface, `method` the generated function for
// it. Its outputs are written whenever it was answered.
template<class Method, class... Inputs, class... Outputs>
std::int32_t callEngine(SlideHandle& handle, Method method, std::tuple<Inputs...> inputs,
                        Outputs&&... outputs) {
    return callInterface(handle, handle.engine->slide(), method, inputs, outputs...);
}

// Hands an array of the handle's out; null when it is empty.
template<class Element>
void handOut(const std::vector<Element>& array, const Element** first, std::int32_t* count) {
    *first = array.empty() ? nullptr : array.data();
    *count = static_cast<std::int32_t>(array.size());
}

} // namespace lectern::engine
