// SPDX-License-Identifier: Apache-2.0
// The functions of modules/TouchSheetFunctions.h.

#include "engine/modules/sheet/SheetHandle.h"

#include <algorithm>

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

constexpr std::size_t NUMBERS = 6; // of a cell: its column and row, and its rectangle
constexpr std::size_t MOST_CELLS = 4096;
constexpr std::uint16_t NO_TEXT[] = {0};

stg_cell cellOf(std::span<const std::int32_t> n) {
    return {n[0], n[1], {n[2], n[3], n[4], n[5]}, NO_TEXT, NO_TEXT};
}

bool isBelievable(const stg_cell& cell) {
    return cell.column >= 0 && cell.row >= 0 && cell.place.width >= 0 && cell.place.height >= 0;
}

// Adds a text and the terminator.
void append(std::vector<std::uint16_t>& texts, std::span<const std::uint16_t> text) {
    texts.insert(texts.end(), text.begin(), std::find(text.begin(), text.end(), 0));
    texts.push_back(0);
}

// Keeps the cells that an engine sent. False if there is not one text for each.
bool keep(CellTexts& kept, GVariant* numbers, GVariant* texts) {
    const std::vector<std::int32_t> all = numbersOf(numbers);
    const std::span<const std::uint16_t> units = elementsOf<std::uint16_t>(texts);
    kept.texts.assign(units.begin(), units.end());
    const std::size_t count = std::min(all.size() / NUMBERS, MOST_CELLS);
    auto text = kept.texts.begin();
    for (std::size_t i = 0; i < count; i++) {
        stg_cell cell = cellOf(std::span(all).subspan(i * NUMBERS, NUMBERS));
        const auto end = std::find(text, kept.texts.end(), 0);
        if (end == kept.texts.end() || !isBelievable(cell)) {
            kept.cells.clear();
            return false;
        }
        cell.text = &*text;
        kept.cells.push_back(cell);
        text = end + 1;
    }
    return true;
}

} // namespace

int32_t stg_get_cell(void* doc, int32_t sheet, int32_t column, int32_t row, stg_cell* cell) {
    if (cell == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) -> std::int32_t {
        GLibHolder<GVariant> numbers;
        GLibHolder<GVariant> text;
        GLibHolder<GVariant> formula;
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_cell_sync,
                                               std::tuple(gint{sheet}, gint{column}, gint{row}), out(numbers),
                                               out(text), out(formula));
        if (result != MODULE_OK) {
            return result;
        }
        const std::vector<std::int32_t> all = numbersOf(numbers.get());
        if (all.size() != NUMBERS || !isBelievable(cellOf(all))) {
            return MODULE_FAILED;
        }
        handle.cell.texts.clear();
        append(handle.cell.texts, elementsOf<std::uint16_t>(text.get()));
        const std::size_t start = handle.cell.texts.size();
        append(handle.cell.texts, elementsOf<std::uint16_t>(formula.get()));
        *cell = cellOf(all);
        cell->text = handle.cell.texts.data();
        cell->formula = handle.cell.texts.data() + start;
        return MODULE_OK;
    });
}

int32_t stg_get_cells(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t width, int32_t height,
                      const stg_cell** cells, int32_t* count) {
    if (cells == nullptr || count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *cells = nullptr;
    *count = 0;
    return onWorkbook(doc, [&](SheetHandle& handle) -> std::int32_t {
        handle.cells = {};
        GLibHolder<GVariant> numbers;
        GLibHolder<GVariant> texts;
        const std::int32_t result = callEngine(
            handle, &lectern_ipc_sheet_call_cells_sync,
            std::tuple(gint{sheet}, gint{x}, gint{y}, gint{width}, gint{height}), out(numbers), out(texts));
        if (result != MODULE_OK) {
            return result;
        }
        if (!keep(handle.cells, numbers.get(), texts.get())) {
            return MODULE_FAILED;
        }
        *cells = handle.cells.cells.empty() ? nullptr : handle.cells.cells.data();
        *count = static_cast<int32_t>(handle.cells.cells.size());
        return MODULE_OK;
    });
}

int32_t stg_get_tap_area(void* doc, int32_t sheet, int32_t x, int32_t y, module_rect* area) {
    if (area == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) -> std::int32_t {
        module_rect read{};
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_tap_area_sync,
                                               std::tuple(gint{sheet}, gint{x}, gint{y}), &read.x, &read.y,
                                               &read.width, &read.height);
        if (result != MODULE_OK) {
            return result;
        }
        if (read.width < 0 || read.height < 0) {
            return MODULE_FAILED;
        }
        *area = read;
        return MODULE_OK;
    });
}

int32_t stg_set_find_options(void* doc, int32_t flags) {
    return onWorkbook(doc, [&](SheetHandle& handle) {
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_sheet_call_set_find_options_sync, std::tuple(gint{flags}));
        if (result == MODULE_OK) {
            handle.state.findOptions = flags;
        }
        return result;
    });
}
