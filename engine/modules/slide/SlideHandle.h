// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/SharedSurface.h"
#include "engine/modules/Arrays.h"
#include "engine/modules/DocumentHandle.h"
#include "engine/modules/EngineCalls.h"
#include "engine/modules/Utf16.h"
#include "engine/protocol/Vocabulary.h"
#include "modules/SlideshowToGoModule.h"
#include "modules/TouchSlideFunctions.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

namespace lectern::engine {

// A slide's outline that was returned to the caller; the items point into the texts.
struct OutlineTexts {
    std::vector<std::uint16_t> units; // each text zero-terminated
    std::vector<sstg_outline_item> items;
};

// What an engine was told of a presentation, as far as later answers depend on it,
// besides its surface.
struct SlideState {
    struct Search {
        std::vector<std::uint16_t> text; // zero-terminated
        std::int32_t first = 0;
        std::int32_t last = 0;
        HighlightColour colour{};
        std::int32_t options = 0;
    };
    HighlightColour colour = DEFAULT_HIGHLIGHT; // of later hits
    std::int32_t options = 0;                   // of later finds
    std::optional<Search> search;
    std::optional<std::int32_t> rendered; // the slide, on the present surface
};

// Lines of text that were returned to the caller; they point into the texts and places.
struct TextLines {
    std::vector<std::uint16_t> units; // each text zero-terminated
    std::vector<module_rect> places;
    std::vector<sstg_text_line> lines;
};

// The object behind an sstg_ document handle.
struct SlideHandle : DocumentHandle {
    SlideState state;

    // The engine's surface: pictures of slides, one below the other; null until
    // a slide is rendered.
    std::unique_ptr<SharedSurface> surface;
    std::int32_t pictures = 0;

    // Arrays returned to the caller; each is valid until the next call of its function.
    std::vector<sstg_find_info> infos;
    std::vector<module_rect> regionRectangles;
    std::vector<sstg_find_region> regions;
    std::vector<std::int32_t> noteOffsets;
    TextLines textLines;
    // Outlines returned to the caller, by their first item; valid until they are freed.
    std::map<const sstg_outline_item*, OutlineTexts> outlines;

    // Gives the engine a new surface for pictures of a size, which replaces the handle's
    // if that succeeds.
    std::int32_t giveSurface(std::int32_t width, std::int32_t height);

protected:
    std::int32_t restore() override;
};

template<class Operation>
std::int32_t onSlideshow(void* doc, Operation operation, WhenLost whenLost = WhenLost::BringBack) {
    return onHandle<SlideHandle>(doc, operation, whenLost);
}

// Makes one typed call to the Slide interface; `method` is the generated
// function. The outputs are written whenever the engine answered.
template<class Method, class... Inputs, class... Outputs>
std::int32_t callEngine(SlideHandle& handle, Method method, std::tuple<Inputs...> inputs,
                        Outputs&&... outputs) {
    return callInterface(handle, handle.engine->slide(), method, inputs, outputs...);
}

// Pointer to the elements of one of the handle's arrays; null when it is empty.
template<class Element>
void handOut(const std::vector<Element>& array, const Element** first, std::int32_t* count) {
    *first = array.empty() ? nullptr : array.data();
    *count = static_cast<std::int32_t>(array.size());
}

} // namespace lectern::engine
