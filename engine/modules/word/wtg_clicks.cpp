// SPDX-License-Identifier: Apache-2.0
// The object at a point, and secondary documents.

#include "engine/modules/Arrays.h"
#include "engine/modules/word/WordHandle.h"
#include "engine/protocol/Vocabulary.h"
#include "modules/WordToGoModule.h"

#include <limits>

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

// The meanings of a, b and c depend on the type.
wtg_click_info clickRecord(std::int32_t type, const std::vector<std::uint16_t>& address, guint value) {
    const auto number = static_cast<std::intptr_t>(value);
    switch (static_cast<ClickType>(type)) {
    case ClickType::Hyperlink:
        return {type, reinterpret_cast<std::intptr_t>(address.data()), 0, 0};
    case ClickType::InternalLink:
        return {type, 0, number, 0};
    case ClickType::Footnote:
    case ClickType::Endnote:
    case ClickType::Comment:
        return {type, type, number, 0};
    case ClickType::Nothing:
        break;
    }
    return {0, 0, 0, 0};
}

} // namespace

int32_t wtg_get_click_info(void* doc, int32_t x, int32_t y, const wtg_click_info** info) {
    if (info == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        gint type = 0;
        guint value = 0;
        GLibHolder<GVariant> address;
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_click_info_sync,
                                               std::tuple(gint{x}, gint{y}), &type, out(address), &value);
        if (result == MODULE_OK) {
            const std::span<const std::uint16_t> units = elementsOf<std::uint16_t>(address.get());
            handle.clickAddress.assign(units.begin(), units.end());
            handle.clickAddress.push_back(0);
            handle.click = clickRecord(type, handle.clickAddress, value);
            *info = &handle.click;
        }
        return result;
    });
}

int32_t wtg_get_click_regions(void* doc, int32_t view, int32_t* count, const module_rect** regions) {
    if (doc == nullptr || view != 0 || count == nullptr || regions == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *regions = nullptr;
    return onDocument(doc, [&](WordHandle& handle) {
        handle.clickRegions.clear();
        GLibHolder<GVariant> rectangles;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_click_regions_sync, std::tuple<>(), out(rectangles));
        if (result == MODULE_OK) {
            handle.clickRegions = rectanglesOf(rectangles.get());
            *count = static_cast<std::int32_t>(handle.clickRegions.size());
            *regions = handle.clickRegions.empty() ? nullptr : handle.clickRegions.data();
        }
        return result;
    });
}

int32_t wtg_open_secondary_document(void* doc, intptr_t a, intptr_t b, intptr_t /*c*/, int32_t height) {
    constexpr auto FIRST = static_cast<intptr_t>(ClickType::Footnote);
    constexpr auto LAST = static_cast<intptr_t>(ClickType::Comment);
    if (a < FIRST || a > LAST || b < 0 || b > std::numeric_limits<std::int32_t>::max() || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_open_secondary_sync,
                       std::tuple(static_cast<gint>(a), static_cast<guint>(b), gint{height}));
        handle.borrowed = handle.borrowed || result == MODULE_OK;
        return result;
    });
}

// A secondary document is painted and then released, so there is nothing to close.
int32_t wtg_close_secondary_document(void* doc) {
    return onDocument(doc, [](WordHandle& handle) -> std::int32_t {
        return handle.engine->isAlive() ? MODULE_OK : MODULE_ENGINE_LOST;
    });
}

int32_t wtg_smart_zoom(void* doc, int32_t view, int32_t x, int32_t y, module_rect* area) {
    if (view != 0 || area == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        GLibHolder<GVariant> rectangle;
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_smart_zoom_sync,
                                               std::tuple(gint{x}, gint{y}), out(rectangle));
        if (result != MODULE_OK) {
            return result;
        }
        const std::vector<module_rect> areas = rectanglesOf(rectangle.get());
        if (areas.size() != 1) {
            return MODULE_FAILED;
        }
        *area = areas.front();
        return MODULE_OK;
    });
}
