// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/SharedSurface.h"
#include "engine/modules/Arrays.h"
#include "engine/modules/DocumentHandle.h"
#include "engine/modules/EngineCalls.h"
#include "engine/modules/Utf16.h"
#include "engine/protocol/Vocabulary.h"
#include "modules/SheetToGoModule.h"
#include "modules/TouchSheetFunctions.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

namespace lectern::engine {

// A caller's buffer and the surface that the engine paints for it.
struct BufferPair {
    std::unique_ptr<SharedSurface> surface; // null until the buffer is set
    std::uint32_t* pixels = nullptr;        // has the surface's size; null after a refused one
};

// The measurements of a sheet, which change only with the resolution and with the
// functions of stg_changes.cpp.
struct SheetMeasures {
    std::int32_t sheet = 0;
    std::int32_t columns = 0;
    std::int32_t width = 0; // in pixels, as all that follow
    std::int32_t height = 0;
    std::int32_t cornerWidth = 0;
    std::int32_t cornerHeight = 0;
    std::vector<stg_region> comments;
};

// What an engine was told of a workbook, as far as later answers depend on it, besides
// its surfaces and the resolution.
struct SheetState {
    struct Search {
        std::vector<std::uint16_t> text; // zero-terminated
        std::int32_t sheet = 0;
        HighlightColour colour{};
        std::int32_t options = 0;
    };
    // The numbers are the engine's own.
    struct Selection {
        std::vector<std::int32_t> numbers;
        HighlightColour colour{};
    };
    HighlightColour colour = DEFAULT_HIGHLIGHT; // of later hits and selections
    std::int32_t findOptions = 0;               // of later finds
    std::optional<Search> search;
    std::optional<Selection> selection;
    std::map<std::int32_t, std::vector<std::int32_t>> changes; // by sheet
};

// Cells returned to the caller, with their texts.
struct CellTexts {
    std::vector<std::uint16_t> texts; // each zero-terminated
    std::vector<stg_cell> cells;      // point to the texts
};

// The object behind an stg_ document handle.
struct SheetHandle : DocumentHandle {
    SheetState state;
    std::array<BufferPair, SHEET_AREAS> buffers;
    std::int32_t dpi = 0; // 0 until it is set
    // Of the sheet that was measured last, until it changes.
    std::optional<SheetMeasures> measures;
    // Arrays returned to the caller; each is valid until the next call of its function.
    std::vector<stg_region> commentMarks;
    std::vector<stg_region> foundRegions;
    CellTexts cell;
    CellTexts cells;

    std::vector<SharedSurface*> surfaces() override {
        std::vector<SharedSurface*> all;
        for (const BufferPair& pair : buffers) {
            if (pair.surface) {
                all.push_back(pair.surface.get());
            }
        }
        return all;
    }

    // Gives the engine a new surface, which replaces the area's if that succeeds.
    std::int32_t giveSurface(SheetArea area, std::int32_t width, std::int32_t height);

protected:
    std::int32_t restore() override;

private:
    std::int32_t restoreChanges();
    std::int32_t restoreMarks();
    std::int32_t restoreSurfaces();
};

template<class Operation>
std::int32_t onWorkbook(void* doc, Operation operation, WhenLost whenLost = WhenLost::BringBack) {
    return onHandle<SheetHandle>(doc, operation, whenLost);
}

// Makes one typed call to the Sheet interface; `method` is the generated
// function. The outputs are written whenever the engine answered.
template<class Method, class... Inputs, class... Outputs>
std::int32_t callEngine(SheetHandle& handle, Method method, std::tuple<Inputs...> inputs,
                        Outputs&&... outputs) {
    return callInterface(handle, handle.engine->sheet(), method, inputs, outputs...);
}

// For functions that select: makes the call, and keeps what is selected then.
template<class Method, class... Inputs, class... Outputs>
std::int32_t selectBy(void* doc, Method method, std::tuple<Inputs...> inputs, Outputs&&... outputs) {
    return onWorkbook(doc, [&](SheetHandle& handle) {
        GLibHolder<GVariant> numbers;
        const std::int32_t result =
            inTurn([&] { return callEngine(handle, method, inputs, outputs...); },
                   [&] {
                       return callEngine(handle, &lectern_ipc_sheet_call_selection_sync, std::tuple<>(),
                                         out(numbers));
                   });
        if (result == MODULE_OK) {
            handle.state.selection = {numbersOf(numbers.get()), handle.state.colour};
        }
        return result;
    });
}

// For functions that return one number.
template<class Method, class... Inputs>
std::int32_t getFromWorkbook(void* doc, std::int32_t* number, Method method, Inputs... inputs) {
    if (number == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) {
        gint value = 0;
        const std::int32_t result = callEngine(handle, method, std::tuple<Inputs...>(inputs...), &value);
        if (result == MODULE_OK) {
            *number = value;
        }
        return result;
    });
}

inline std::vector<stg_region> regionsOf(GVariant* numbers) {
    std::vector<stg_region> regions;
    for (const module_rect& rectangle : rectanglesOf(numbers)) {
        regions.push_back({0, rectangle.x, rectangle.y, rectangle.width, rectangle.height});
    }
    return regions;
}

// For functions that return one of a sheet's measurements: runs use(measures).
// Only the first one after a change calls the engine.
template<class Use>
std::int32_t onMeasures(void* doc, std::int32_t sheet, Use use) {
    return onWorkbook(doc, [&](SheetHandle& handle) -> std::int32_t {
        if (!handle.engine->isAlive()) {
            return MODULE_ENGINE_LOST;
        }
        if (!handle.measures || handle.measures->sheet != sheet) {
            SheetMeasures read{sheet, 0, 0, 0, 0, 0, {}};
            GLibHolder<GVariant> comments;
            const std::int32_t result = callEngine(
                handle, &lectern_ipc_sheet_call_measure_sync, std::tuple(gint{sheet}), &read.columns,
                &read.width, &read.height, &read.cornerWidth, &read.cornerHeight, out(comments));
            if (result != MODULE_OK) {
                return result;
            }
            if (read.columns < 0 || read.width < 0 || read.height < 0) {
                return MODULE_FAILED;
            }
            read.comments = regionsOf(comments.get());
            handle.measures = std::move(read);
        }
        return use(handle, *handle.measures);
    });
}

// For functions that return rectangles, which are stored in the handle's member `kept`.
template<class Method, class... Inputs>
std::int32_t getRegions(void* doc, const stg_region** regions, std::int32_t* count,
                        std::vector<stg_region> SheetHandle::*kept, Method method, Inputs... inputs) {
    if (regions == nullptr || count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *regions = nullptr;
    *count = 0;
    return onWorkbook(doc, [&](SheetHandle& handle) {
        std::vector<stg_region>& list = handle.*kept;
        list.clear();
        GLibHolder<GVariant> numbers;
        const std::int32_t result =
            callEngine(handle, method, std::tuple<Inputs...>(inputs...), out(numbers));
        if (result != MODULE_OK) {
            return result;
        }
        list = regionsOf(numbers.get());
        *regions = list.empty() ? nullptr : list.data();
        *count = static_cast<std::int32_t>(list.size());
        return result;
    });
}

} // namespace lectern::engine
