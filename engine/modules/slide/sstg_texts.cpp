// SPDX-License-Identifier: Apache-2.0
// Titles, notes and outlines.

#include "engine/modules/slide/SlideHandle.h"

#include <utility>

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

template<class Method, class Use>
std::int32_t withText(void* doc, std::int32_t slide, Method method, Use use) {
    return onSlideshow(doc, [&](SlideHandle& handle) {
        GLibHolder<GVariant> text;
        const std::int32_t result = callEngine(handle, method, std::tuple(gint{slide}), out(text));
        if (result == MODULE_OK) {
            use(elementsOf<std::uint16_t>(text.get()));
        }
        return result;
    });
}

// Returns false when the lengths do not match the text.
bool keepOutline(OutlineTexts& outline, std::span<const std::uint16_t> text,
                 std::span<const std::uint32_t> lengths, std::span<const std::int32_t> levels) {
    if (lengths.size() != levels.size()) {
        return false;
    }
    outline.units.reserve(text.size() + lengths.size()); // so that the pointers to it stay valid
    for (std::size_t i = 0; i < lengths.size(); i++) {
        if (lengths[i] > text.size()) {
            return false;
        }
        const std::size_t start = outline.units.size();
        outline.units.insert(outline.units.end(), text.begin(), text.begin() + lengths[i]);
        outline.units.push_back(0);
        outline.items.push_back({outline.units.data() + start, levels[i]});
        text = text.subspan(lengths[i]);
    }
    return true;
}

} // namespace

int32_t sstg_get_slide_title(void* doc, int32_t slide, uint16_t* text, int32_t capacity, int32_t* length) {
    if (!isTextBuffer(text, capacity, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    return withText(
        doc, slide, &lectern_ipc_slide_call_title_sync,
        [&](std::span<const std::uint16_t> title) { deliverText(title, text, capacity, length); });
}

int32_t sstg_slide_has_note(void* doc, int32_t slide, uint8_t* flag) {
    if (flag == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return withText(doc, slide, &lectern_ipc_slide_call_note_sync,
                    [&](std::span<const std::uint16_t> note) { *flag = note.empty() ? 0 : 1; });
}

int32_t sstg_get_slide_note(void* doc, int32_t slide, uint16_t* text, int32_t capacity, int32_t first,
                            int32_t* length) {
    if (!isTextBuffer(text, capacity, length) || first < 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return withText(doc, slide, &lectern_ipc_slide_call_note_sync, [&](std::span<const std::uint16_t> note) {
        deliverTextFrom(note, first, text, capacity, length);
    });
}

int32_t sstg_get_slide_outline(void* doc, int32_t slide, int32_t* count, sstg_outline_item** items) {
    if (count == nullptr || items == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        GLibHolder<GVariant> text;
        GLibHolder<GVariant> lengths;
        GLibHolder<GVariant> levels;
        const std::int32_t result = callEngine(handle, &lectern_ipc_slide_call_outline_sync,
                                               std::tuple(gint{slide}), out(text), out(lengths), out(levels));
        if (result != MODULE_OK) {
            return result;
        }
        OutlineTexts outline;
        if (!keepOutline(outline, elementsOf<std::uint16_t>(text.get()),
                         elementsOf<std::uint32_t>(lengths.get()), elementsOf<std::int32_t>(levels.get()))) {
            return MODULE_FAILED;
        }
        *count = static_cast<std::int32_t>(outline.items.size());
        *items = outline.items.empty() ? nullptr : outline.items.data();
        if (*items != nullptr) {
            handle.outlines.emplace(*items, std::move(outline));
        }
        return MODULE_OK;
    });
}

int32_t sstg_free_slide_outline(void* doc, sstg_outline_item* items) {
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        // An empty outline has no items, so there is nothing to free.
        return items == nullptr || handle.outlines.erase(items) == 1 ? MODULE_OK : MODULE_BAD_ARGUMENT;
    });
}
