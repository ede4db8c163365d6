// SPDX-License-Identifier: Apache-2.0
// Searching, and the places of hits.

#include "engine/modules/slide/SlideHandle.h"

#include <algorithm>

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

// Stores regions with their rectangles; returns false when the counts do not
// match the number of rectangles.
bool keepRegions(SlideHandle& handle, std::span<const std::uint32_t> counts, GVariant* rectangles) {
    handle.regionRectangles = rectanglesOf(rectangles);
    std::size_t next = 0;
    for (const std::uint32_t count : counts) {
        if (count < 1 || count > handle.regionRectangles.size() - next) {
            handle.regions.clear();
            return false;
        }
        handle.regions.push_back({handle.regionRectangles.data() + next, count});
        next += count;
    }
    return true;
}

} // namespace

int32_t sstg_set_highlight_color(void* doc, const uint8_t rgb[3]) {
    if (rgb == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) {
        const std::int32_t result = callEngine(handle, &lectern_ipc_slide_call_set_highlight_color_sync,
                                               std::tuple(guchar{rgb[0]}, guchar{rgb[1]}, guchar{rgb[2]}));
        if (result == MODULE_OK) {
            handle.state.colour = {rgb[0], rgb[1], rgb[2]};
        }
        return result;
    });
}

int32_t sstg_find(void* doc, const uint16_t* text, int32_t first_slide, int32_t last_slide,
                  const sstg_find_info** infos, int32_t* count) {
    if (doc == nullptr || infos == nullptr || count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *infos = nullptr;
    *count = 0;
    if (text == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) {
        handle.infos.clear();
        const GLibHolder<GVariant> wanted = unitsOf(text);
        GLibHolder<GVariant> found;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_slide_call_find_sync,
                       std::tuple(wanted.get(), gint{first_slide}, gint{last_slide}), out(found));
        if (result == MODULE_OK) {
            handle.state.search = {{text, text + unitCount(text) + 1},
                                   first_slide,
                                   last_slide,
                                   handle.state.colour,
                                   handle.state.options};
            const std::span<const std::int32_t> numbers = elementsOf<std::int32_t>(found.get());
            if (std::any_of(numbers.begin(), numbers.end(), [](std::int32_t number) { return number < 0; })) {
                return std::int32_t{MODULE_FAILED};
            }
            for (std::size_t i = 0; i + 3 <= numbers.size(); i += 3) {
                handle.infos.push_back({numbers[i], numbers[i + 1], numbers[i + 2]});
            }
            handOut(handle.infos, infos, count);
        }
        return result;
    });
}

int32_t sstg_get_found_regions(void* doc, int32_t* count, const sstg_find_region** regions) {
    if (doc == nullptr || count == nullptr || regions == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *regions = nullptr;
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        handle.regions.clear();
        GLibHolder<GVariant> counts;
        GLibHolder<GVariant> rectangles;
        const std::int32_t result = callEngine(handle, &lectern_ipc_slide_call_found_regions_sync,
                                               std::tuple<>(), out(counts), out(rectangles));
        if (result != MODULE_OK) {
            return result;
        }
        if (!keepRegions(handle, elementsOf<std::uint32_t>(counts.get()), rectangles.get())) {
            return MODULE_FAILED;
        }
        handOut(handle.regions, regions, count);
        return MODULE_OK;
    });
}

int32_t sstg_get_found_note_offsets(void* doc, int32_t slide, int32_t* count, const int32_t** offsets) {
    if (doc == nullptr || count == nullptr || offsets == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *offsets = nullptr;
    return onSlideshow(doc, [&](SlideHandle& handle) {
        handle.noteOffsets.clear();
        GLibHolder<GVariant> found;
        const std::int32_t result = callEngine(handle, &lectern_ipc_slide_call_found_note_offsets_sync,
                                               std::tuple(gint{slide}), out(found));
        if (result == MODULE_OK) {
            const std::span<const std::int32_t> units = elementsOf<std::int32_t>(found.get());
            handle.noteOffsets.assign(units.begin(), units.end());
            handOut(handle.noteOffsets, offsets, count);
        }
        return result;
    });
}

int32_t sstg_stop_find(void* doc) {
    return onSlideshow(doc, [](SlideHandle& handle) {
        handle.infos.clear();
        handle.regions.clear();
        handle.noteOffsets.clear();
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_slide_call_stop_find_sync, std::tuple<>());
        if (result == MODULE_OK) {
            handle.state.search.reset();
        }
        return result;
    });
}
