// SPDX-License-Identifier: Apache-2.0
// The optional functions, for views with touch manners.

#include "engine/modules/Arrays.h"
#include "engine/modules/word/WordHandle.h"
#include "modules/TouchWordFunctions.h"

#include <algorithm>

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

// Stores the one rectangle that an engine sent.
std::int32_t deliverRectangle(GVariant* array, module_rect* rectangle) {
    const std::vector<module_rect> all = rectanglesOf(array);
    if (all.size() != 1) {
        return MODULE_FAILED;
    }
    *rectangle = all.front();
    return MODULE_OK;
}

// Keeps texts that an engine sent one after another, and a record for each, which
// record(index, text) makes. False if the ends do not belong to the texts.
template<class Record, class MakeRecord>
bool keepTexts(std::span<const std::uint16_t> text, std::span<const std::uint32_t> ends,
               KeptTexts<Record>& kept, MakeRecord record) {
    if (!std::is_sorted(ends.begin(), ends.end()) || (!ends.empty() && ends.back() > text.size())) {
        return false;
    }
    kept = {};
    kept.units.reserve(text.size() + ends.size()); // the records point into it
    std::size_t start = 0;
    for (const std::uint32_t end : ends) {
        const std::uint16_t* const first = kept.units.data() + kept.units.size();
        kept.units.insert(kept.units.end(), text.begin() + static_cast<std::ptrdiff_t>(start),
                          text.begin() + static_cast<std::ptrdiff_t>(end));
        kept.units.push_back(0);
        kept.records.push_back(record(kept.records.size(), first));
        start = end;
    }
    return true;
}

template<class Record>
void deliver(const std::vector<Record>& records, std::int32_t* count, const Record** array) {
    *count = static_cast<std::int32_t>(records.size());
    *array = records.empty() ? nullptr : records.data();
}

} // namespace

int32_t wtg_get_character_at(void* doc, int32_t x, int32_t y, uint32_t* character, module_rect* line) {
    if (character == nullptr || line == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        guint found = 0;
        GLibHolder<GVariant> rectangle;
        std::int32_t result = callEngine(handle, &lectern_ipc_word_call_character_at_sync,
                                         std::tuple(gint{x}, gint{y}), &found, out(rectangle));
        if (result == MODULE_OK) {
            result = deliverRectangle(rectangle.get(), line);
        }
        if (result == MODULE_OK) {
            *character = found;
        }
        return result;
    });
}

int32_t wtg_get_text_size(void* doc, int64_t* top, int64_t* rows, uint32_t* characters) {
    if (top == nullptr || rows == nullptr || characters == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        gint64 firstRow = 0;
        gint64 laidOut = 0;
        guint known = 0;
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_text_size_sync, std::tuple<>(),
                                               &firstRow, &laidOut, &known);
        if (result != MODULE_OK) {
            return result;
        }
        if (firstRow < 0 || laidOut < 0) {
            return MODULE_FAILED;
        }
        *top = firstRow;
        *rows = laidOut;
        *characters = known;
        return MODULE_OK;
    });
}

int32_t wtg_get_tap_area(void* doc, int32_t x, int32_t y, module_rect* area, int32_t* most_dpi) {
    if (area == nullptr || most_dpi == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        GLibHolder<GVariant> rectangle;
        gint most = 0;
        std::int32_t result = callEngine(handle, &lectern_ipc_word_call_tap_area_sync,
                                         std::tuple(gint{x}, gint{y}), out(rectangle), &most);
        if (result == MODULE_OK) {
            result = deliverRectangle(rectangle.get(), area);
        }
        if (result == MODULE_OK) {
            *most_dpi = std::max(0, most);
        }
        return result;
    });
}

int32_t wtg_set_find_options(void* doc, int32_t flags) {
    return onDocument(doc, [&](WordHandle& handle) {
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_set_find_options_sync, std::tuple(gint{flags}));
        if (result == MODULE_OK) {
            handle.state.findOptions = flags;
        }
        return result;
    });
}

int32_t wtg_get_selection_regions(void* doc, int32_t* count, const module_rect** rectangles) {
    if (doc == nullptr || count == nullptr || rectangles == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *rectangles = nullptr;
    return onDocument(doc, [&](WordHandle& handle) {
        GLibHolder<GVariant> found;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_selection_regions_sync, std::tuple<>(), out(found));
        if (result == MODULE_OK) {
            handle.selectionRegions = rectanglesOf(found.get());
            deliver(handle.selectionRegions, count, rectangles);
        }
        return result;
    });
}

int32_t wtg_get_text_lines(void* doc, int32_t top, int32_t bottom, int32_t* count,
                           const wtg_text_line** lines) {
    if (doc == nullptr || count == nullptr || lines == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *lines = nullptr;
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        GLibHolder<GVariant> text;
        GLibHolder<GVariant> ends;
        GLibHolder<GVariant> rectangles;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_text_lines_sync, std::tuple(gint{top}, gint{bottom}),
                       out(text), out(ends), out(rectangles));
        if (result != MODULE_OK) {
            return result;
        }
        const std::vector<module_rect> places = rectanglesOf(rectangles.get());
        const std::span<const std::uint32_t> lineEnds = elementsOf<std::uint32_t>(ends.get());
        const auto record = [&](std::size_t i, const std::uint16_t* line) {
            return wtg_text_line{line, places[i]};
        };
        if (places.size() != lineEnds.size() ||
            !keepTexts(elementsOf<std::uint16_t>(text.get()), lineEnds, handle.lines, record)) {
            return MODULE_FAILED;
        }
        deliver(handle.lines.records, count, lines);
        return MODULE_OK;
    });
}

int32_t wtg_get_outline(void* doc, int32_t* count, const wtg_outline_entry** entries) {
    if (doc == nullptr || count == nullptr || entries == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *entries = nullptr;
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        GLibHolder<GVariant> text;
        GLibHolder<GVariant> ends;
        GLibHolder<GVariant> levels;
        GLibHolder<GVariant> positions;
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_outline_sync, std::tuple<>(),
                                               out(text), out(ends), out(levels), out(positions));
        if (result != MODULE_OK) {
            return result;
        }
        const std::span<const std::uint32_t> titleEnds = elementsOf<std::uint32_t>(ends.get());
        const std::span<const std::int32_t> depths = elementsOf<std::int32_t>(levels.get());
        const std::span<const std::uint32_t> starts = elementsOf<std::uint32_t>(positions.get());
        const auto record = [&](std::size_t i, const std::uint16_t* title) {
            return wtg_outline_entry{title, depths[i], starts[i]};
        };
        if (depths.size() != titleEnds.size() || starts.size() != titleEnds.size() ||
            !keepTexts(elementsOf<std::uint16_t>(text.get()), titleEnds, handle.headings, record)) {
            return MODULE_FAILED;
        }
        deliver(handle.headings.records, count, entries);
        return MODULE_OK;
    });
}
