// SPDX-License-Identifier: Apache-2.0
// Searching, and the places of hits.

#include "engine/modules/Arrays.h"
#include "engine/modules/word/WordHandle.h"
#include "modules/WordToGoModule.h"

using namespace lectern::engine;
using lectern::GLibHolder;

std::optional<Regions> lectern::engine::regionsOf(GVariant* positions, GVariant* counts,
                                                  GVariant* rectangles) {
    Regions kept;
    kept.rectangles = rectanglesOf(rectangles);
    const std::span<const std::uint32_t> starts = elementsOf<std::uint32_t>(positions);
    const std::span<const std::uint32_t> sizes = elementsOf<std::uint32_t>(counts);
    if (starts.size() != sizes.size()) {
        return std::nullopt;
    }
    std::size_t next = 0;
    for (std::size_t i = 0; i < starts.size(); i++) {
        if (sizes[i] > kept.rectangles.size() - next) {
            return std::nullopt;
        }
        kept.regions.push_back({starts[i], kept.rectangles.data() + next, sizes[i]});
        next += sizes[i];
    }
    return kept;
}

namespace {

// Asks for the regions unless they came with the last move.
std::int32_t fetchRegions(WordHandle& handle) {
    if (!handle.nextRegions || !handle.engine->isAlive()) {
        GLibHolder<GVariant> positions;
        GLibHolder<GVariant> counts;
        GLibHolder<GVariant> rectangles;
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_found_regions_sync,
                                               std::tuple<>(), out(positions), out(counts), out(rectangles));
        if (result != MODULE_OK) {
            return result;
        }
        handle.nextRegions = regionsOf(positions.get(), counts.get(), rectangles.get());
    }
    if (!handle.nextRegions) {
        return MODULE_FAILED;
    }
    handle.regions = std::move(*handle.nextRegions);
    handle.nextRegions.reset();
    return MODULE_OK;
}

} // namespace

int32_t wtg_find(void* doc, const uint16_t* text, int32_t /*flags*/, uint32_t* from, uint32_t* to,
                 const wtg_find_result** results, int32_t* count) {
    if (doc == nullptr || text == nullptr || from == nullptr || to == nullptr || results == nullptr ||
        count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *results = nullptr;
    *count = 0;
    return onDocument(doc, [&](WordHandle& handle) {
        handle.results.clear();
        handle.nextRegions.reset();
        GLibHolder<GVariant> hits;
        const GLibHolder<GVariant> wanted = unitsOf(text);
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_find_sync,
                                               std::tuple(wanted.get(), guint{*from}, guint{*to}), out(hits));
        if (result != MODULE_OK) {
            return result;
        }
        const std::span<const std::uint32_t> ends = elementsOf<std::uint32_t>(hits.get());
        for (std::size_t i = 0; i + 2 <= ends.size(); i += 2) {
            handle.results.push_back({0, ends[i], ends[i + 1]});
        }
        handle.state.search = {
            {text, text + unitCount(text) + 1}, *from, *to, handle.state.colour, handle.state.findOptions};
        *count = static_cast<std::int32_t>(handle.results.size());
        *results = handle.results.empty() ? nullptr : handle.results.data();
        return result;
    });
}

int32_t wtg_get_found_regions(void* doc, int32_t view, int32_t* count, const wtg_find_region** regions) {
    if (doc == nullptr || view != 0 || count == nullptr || regions == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *regions = nullptr;
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        handle.regions = {};
        if (const std::int32_t result = fetchRegions(handle); result != MODULE_OK) {
            return result;
        }
        *count = static_cast<std::int32_t>(handle.regions.regions.size());
        *regions = handle.regions.regions.empty() ? nullptr : handle.regions.regions.data();
        return MODULE_OK;
    });
}

int32_t wtg_stop_find(void* doc) {
    return onDocument(doc, [](WordHandle& handle) {
        handle.results.clear();
        handle.regions = {};
        handle.nextRegions.reset();
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_stop_find_sync, std::tuple<>());
        if (result == MODULE_OK) {
            handle.state.search.reset();
        }
        return result;
    });
}

int32_t wtg_set_highlight_color(void* doc, const uint8_t rgb[3]) {
    if (rgb == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_set_highlight_color_sync,
                                               std::tuple(guchar{rgb[0]}, guchar{rgb[1]}, guchar{rgb[2]}));
        if (result == MODULE_OK) {
            handle.state.colour = {rgb[0], rgb[1], rgb[2]};
        }
        return result;
    });
}
