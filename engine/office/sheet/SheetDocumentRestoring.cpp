// SPDX-License-Identifier: Apache-2.0
// What another engine needs to know to go on with a workbook.
#include "engine/layout/Twips.h"
#include "engine/office/sheet/SheetDocumentPrivate.h"

#include <algorithm>

namespace lectern::engine {

namespace {

constexpr int32_t CELLS = -1; // in place of an axis: neither whole columns nor rows

} // namespace

int32_t SheetDocument::changes(int32_t sheet, std::vector<int32_t>& numbers) {
    return mPrivate->onSheet(sheet, [&](const SheetGeometry&) {
        numbers = mPrivate->changes[sheet].numbers();
        return MODULE_OK;
    });
}

int32_t SheetDocument::restoreChanges(int32_t sheet, const std::vector<int32_t>& numbers) {
    Private& d = *mPrivate;
    const std::optional<SheetChanges> wanted = SheetChanges::read(numbers);
    if (!wanted) {
        return MODULE_BAD_ARGUMENT;
    }
    for (const SheetChanges::Sort& one : wanted->sorts()) {
        if (const int32_t result = sort(sheet, one.column, one.ascending); result != MODULE_OK) {
            return result;
        }
    }
    return d.onSheet(sheet, [&](const SheetGeometry&) {
        d.book.aboutToChange(sheet);
        const bool done =
            d.restoreTracks(sheet, Axis::Columns, *wanted) && d.restoreTracks(sheet, Axis::Rows, *wanted);
        d.book.changed(sheet);
        d.changes[sheet].hidden() = wanted->hidden();
        return done ? MODULE_OK : MODULE_FAILED;
    });
}

bool SheetDocument::Private::restoreTracks(int32_t sheet, Axis axis, const SheetChanges& wanted) {
    const auto& sizes = wanted.sizes(axis);
    const auto visibilities = wanted.visibilities(axis);
    return std::all_of(sizes.begin(), sizes.end(),
                       [&](const auto& size) { return resize(sheet, axis, size.first, size.second); }) &&
           std::all_of(visibilities.begin(), visibilities.end(),
                       [&](const auto& one) { return show(sheet, axis, one.run, one.visible); });
}

std::vector<int32_t> SheetDocument::selection() const {
    const std::optional<SheetSelection>& selected = mPrivate->selection;
    if (!selected) {
        return {};
    }
    const CellBlock& block = selected->block;
    return {selected->sheet, selected->tracks ? static_cast<int32_t>(*selected->tracks) : CELLS,
            block.left,      block.top,
            block.right,     block.bottom};
}

int32_t SheetDocument::restoreSelection(const std::vector<int32_t>& numbers) {
    Private& d = *mPrivate;
    if (numbers.empty()) {
        return clearSelection();
    }
    if (numbers.size() != 6 ||
        std::any_of(numbers.begin() + 2, numbers.end(), [](int32_t n) { return n < 0; })) {
        return MODULE_BAD_ARGUMENT;
    }
    return d.onSheet(numbers[0], [&](const SheetGeometry&) {
        d.selection = {
            numbers[0], {numbers[2], numbers[3], numbers[4], numbers[5]}, std::nullopt, d.highlight};
        if (numbers[1] != CELLS) {
            d.selection->tracks = numbers[1] == 0 ? Axis::Columns : Axis::Rows;
        }
        return MODULE_OK;
    });
}

} // namespace lectern::engine
