// SPDX-License-Identifier: Apache-2.0
// The optional functions: find options, links, shapes and lines of text.

#include "engine/modules/slide/SlideHandle.h"

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

// Returns false when the counts do not match the text.
bool keepLines(TextLines& kept, std::span<const std::uint16_t> text, std::span<const std::uint32_t> lengths,
               std::span<const std::int32_t> paragraphs, GVariant* places) {
    kept = TextLines();
    kept.places = rectanglesOf(places);
    if (lengths.size() != paragraphs.size() || kept.places.size() != text.size()) {
        return false;
    }
    kept.units.reserve(text.size() + lengths.size()); // so that the pointers to it stay valid
    std::size_t taken = 0;
    for (std::size_t i = 0; i < lengths.size(); i++) {
        if (lengths[i] > text.size() - taken) {
            return false;
        }
        const std::span<const std::uint16_t> line = text.subspan(taken, lengths[i]);
        const std::size_t start = kept.units.size();
        kept.units.insert(kept.units.end(), line.begin(), line.end());
        kept.units.push_back(0);
        kept.lines.push_back({kept.units.data() + start, kept.places.data() + taken,
                              static_cast<std::int32_t>(lengths[i]), paragraphs[i]});
        taken += lengths[i];
    }
    return true;
}

} // namespace

int32_t sstg_set_find_options(void* doc, int32_t flags) {
    return onSlideshow(doc, [&](SlideHandle& handle) {
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_slide_call_set_find_options_sync, std::tuple(gint{flags}));
        if (result == MODULE_OK) {
            handle.state.options = flags;
        }
        return result;
    });
}

int32_t sstg_get_link(void* doc, int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height,
                      int32_t* target, uint16_t* address, int32_t capacity, int32_t* length) {
    if (target == nullptr || !isTextBuffer(address, capacity, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        gint linked = -1;
        GLibHolder<GVariant> text;
        const std::int32_t result = callEngine(
            handle, &lectern_ipc_slide_call_link_sync,
            std::tuple(gint{slide}, gint{x}, gint{y}, gint{width}, gint{height}), &linked, out(text));
        const std::int32_t checked = checkedCount(result, linked, -1, MOST_PARTS);
        if (checked == MODULE_OK) {
            *target = linked;
            deliverText(elementsOf<std::uint16_t>(text.get()), address, capacity, length);
        }
        return checked;
    });
}

int32_t sstg_get_shape_area(void* doc, int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height,
                            module_rect* area) {
    if (area == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        GLibHolder<GVariant> told;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_slide_call_shape_area_sync,
                       std::tuple(gint{slide}, gint{x}, gint{y}, gint{width}, gint{height}), out(told));
        if (result != MODULE_OK) {
            return result;
        }
        const std::vector<module_rect> areas = rectanglesOf(told.get());
        if (areas.size() != 1) {
            return MODULE_FAILED;
        }
        *area = areas.front();
        return MODULE_OK;
    });
}

int32_t sstg_get_text_lines(void* doc, int32_t slide, int32_t width, int32_t height, int32_t* count,
                            const sstg_text_line** lines) {
    if (doc == nullptr || count == nullptr || lines == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *lines = nullptr;
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        GLibHolder<GVariant> text;
        GLibHolder<GVariant> lengths;
        GLibHolder<GVariant> paragraphs;
        GLibHolder<GVariant> places;
        const std::int32_t result = callEngine(handle, &lectern_ipc_slide_call_text_lines_sync,
                                               std::tuple(gint{slide}, gint{width}, gint{height}), out(text),
                                               out(lengths), out(paragraphs), out(places));
        if (result != MODULE_OK) {
            return result;
        }
        if (!keepLines(handle.textLines, elementsOf<std::uint16_t>(text.get()),
                       elementsOf<std::uint32_t>(lengths.get()), elementsOf<std::int32_t>(paragraphs.get()),
                       places.get())) {
            handle.textLines = TextLines();
            return MODULE_FAILED;
        }
        handOut(handle.textLines.lines, lines, count);
        return MODULE_OK;
    });
}
