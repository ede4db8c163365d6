// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/SheetChanges.h"
#include "engine/office/OfficeGuard.h"
#include "engine/office/sheet/CellPainter.h"
#include "engine/office/sheet/HeaderPainter.h"
#include "engine/office/sheet/SheetDocument.h"
#include "engine/office/sheet/SheetSearch.h"
#include "engine/office/sheet/Workbook.h"

#include <array>
#include <map>
#include <optional>

namespace lectern::engine {

struct SheetSelection {
    int32_t sheet;
    CellBlock block;
    std::optional<Axis> tracks; // set when whole columns or rows are selected
    Colour colour;
};

struct SheetDocument::Private {
    explicit Private(LoadedModel loaded) : book(std::move(loaded)), headers(DEFAULT_DPI) {
        book.setDpi(DEFAULT_DPI);
    }

    // Runs work on a sheet if its number is valid.
    template<class Work>
    int32_t onSheet(int32_t sheet, Work work) noexcept {
        return guardedInOffice([&]() -> int32_t {
            return book.has(sheet) ? work(book.geometry(sheet)) : int32_t{MODULE_BAD_ARGUMENT};
        });
    }
    // Runs work that changes the tracks of a sheet.
    template<class Work>
    int32_t onTracks(int32_t sheet, Axis axis, Work work) noexcept {
        return onSheet(sheet, [&](const SheetGeometry& geometry) {
            book.aboutToChange(sheet);
            const int32_t result = work(geometry.along(axis));
            book.changed(sheet);
            return result;
        });
    }

    // The rectangle of a block on its sheet; width or height is 0 when the
    // block is hidden.
    PixelRect place(const SheetGeometry& geometry, const CellBlock& block) const;
    std::optional<MarkedTracks> marked(int32_t sheet, Axis axis) const;
    void markCells(int32_t sheet, int32_t x, int32_t y);
    void noteSort(int32_t sheet, const SheetChanges::Sort& sort);
    // Change tracks and note that. They return false when the suite refuses. A size of
    // SheetChanges::FITTING is for columns only.
    bool show(int32_t sheet, Axis axis, const SheetChanges::Run& run, bool visible);
    bool resize(int32_t sheet, Axis axis, int32_t track, int32_t twips);
    bool restoreTracks(int32_t sheet, Axis axis, const SheetChanges& wanted);
    const Surface& surface(SheetArea area) const { return surfaces[static_cast<size_t>(area)]; }

    Workbook book;
    CellPainter cells;
    HeaderPainter headers;
    std::array<Surface, SHEET_AREAS> surfaces;
    int32_t dpi = DEFAULT_DPI;

    Colour highlight{128, 192, 255}; // for later finds and selections
    int32_t findOptions = 0;         // for later finds
    CellHits hits;
    Colour hitColour{};
    std::optional<SheetSelection> selection;
    std::map<int32_t, SheetChanges> changes; // by sheet
};

} // namespace lectern::engine
