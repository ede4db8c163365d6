// SPDX-License-Identifier: Apache-2.0
// Opening a workbook, its measurements and its painting.
#include "engine/office/sheet/SheetDocument.h"

#include "engine/layout/Tint.h"
#include "engine/office/AnyLoading.h"
#include "engine/office/Properties.h"
#include "engine/office/ReadersLanguage.h"
#include "engine/office/sheet/SheetDocumentPrivate.h"

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>

#include <algorithm>
#include <limits>

namespace lectern::engine {

namespace {

int32_t saturated(int64_t value) {
    return static_cast<int32_t>(std::min<int64_t>(value, std::numeric_limits<int32_t>::max()));
}

} // namespace

int32_t SheetDocument::open(Office& office, const std::string& path, const std::string& password,
                            const std::string& temporaryDirectory, std::unique_ptr<SheetDocument>& document) {
    return openLoaded(
        [&](LoadedModel& loaded) {
            return loadModel(office.d(), path, password, temporaryDirectory, loaded, readersLanguage());
        },
        document);
}

int32_t SheetDocument::openAny(Office& office, const AnyFile& file,
                               std::unique_ptr<SheetDocument>& document) {
    return openLoaded(
        [&](LoadedModel& loaded) {
            return loadAny(office.d(), file, DocumentKind::Sheet, loaded, readersLanguage());
        },
        document);
}

template<class Load>
int32_t SheetDocument::openLoaded(Load load, std::unique_ptr<SheetDocument>& document) {
    return guardedInOffice([&]() -> int32_t {
        LoadedModel loaded;
        const int32_t result = load(loaded);
        if (result != MODULE_OK) {
            return result;
        }
        if (!css::uno::Reference<css::sheet::XSpreadsheetDocument>(loaded.model, css::uno::UNO_QUERY).is()) {
            return MODULE_WRONG_KIND;
        }
        document.reset(new SheetDocument(std::make_unique<Private>(std::move(loaded))));
        return MODULE_OK;
    });
}

SheetDocument::SheetDocument(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}

SheetDocument::~SheetDocument() {
    guardedInOffice([this]() -> int32_t {
        mPrivate.reset();
        return MODULE_OK;
    });
}

PixelRect SheetDocument::Private::place(const SheetGeometry& geometry, const CellBlock& block) const {
    const int64_t left = geometry.columns.position(block.left);
    const int64_t top = geometry.rows.position(block.top);
    return {saturated(left), saturated(top), saturated(geometry.columns.position(block.right + 1) - left),
            saturated(geometry.rows.position(block.bottom + 1) - top)};
}

std::optional<MarkedTracks> SheetDocument::Private::marked(int32_t sheet, Axis axis) const {
    if (!selection || selection->sheet != sheet || selection->tracks.value_or(axis) != axis) {
        return std::nullopt;
    }
    const CellBlock& block = selection->block;
    return axis == Axis::Columns ? MarkedTracks{block.left, block.right, selection->colour}
                                 : MarkedTracks{block.top, block.bottom, selection->colour};
}

void SheetDocument::Private::markCells(int32_t sheet, int32_t x, int32_t y) {
    const SheetGeometry& geometry = book.geometry(sheet);
    const Surface& target = surface(SheetArea::Cells);
    const auto mark = [&](const CellBlock& block, const Colour& colour) {
        const PixelRect rect = place(geometry, block);
        const int64_t left = int64_t{rect.x} - x;
        const int64_t top = int64_t{rect.y} - y;
        tint(target, left, top, left + rect.width, top + rect.height, colour);
    };
    if (selection && selection->sheet == sheet) {
        mark(selection->block, selection->colour);
    }
    if (hits.sheet() == sheet) {
        hits.forRows(geometry.rows.trackAt(y), geometry.rows.trackAt(int64_t{y} + target.height),
                     [&](const CellBlock& cell) { mark(cell, hitColour); });
    }
}

int32_t SheetDocument::setSurface(SheetArea area, uint32_t* pixels, int32_t width, int32_t height) {
    if (pixels == nullptr || width < 1 || height < 1 || width > MOST_PIXELS || height > MOST_PIXELS) {
        return MODULE_BAD_ARGUMENT;
    }
    mPrivate->surfaces[static_cast<size_t>(area)] = {pixels, width, height};
    return MODULE_OK;
}

int32_t SheetDocument::setDpi(int32_t dpi) {
    if (dpi < 1 || dpi > MOST_DPI) {
        return MODULE_BAD_ARGUMENT;
    }
    return guardedInOffice([&]() -> int32_t {
        if (dpi != mPrivate->dpi) {
            mPrivate->dpi = dpi;
            mPrivate->book.setDpi(dpi);
            mPrivate->headers = HeaderPainter(dpi);
        }
        return MODULE_OK;
    });
}

int32_t SheetDocument::render(int32_t sheet, int32_t x, int32_t y) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        if (const Surface& cells = d.surface(SheetArea::Cells); cells.pixels != nullptr) {
            d.cells.paint(d.book, sheet, x, y, d.dpi, cells);
            d.markCells(sheet, x, y);
        }
        if (const Surface& strip = d.surface(SheetArea::RowHeaders); strip.pixels != nullptr) {
            d.headers.paint(Axis::Rows, geometry.rows, y, d.marked(sheet, Axis::Rows), strip);
        }
        if (const Surface& strip = d.surface(SheetArea::ColumnHeaders); strip.pixels != nullptr) {
            d.headers.paint(Axis::Columns, geometry.columns, x, d.marked(sheet, Axis::Columns), strip);
        }
        return MODULE_OK;
    });
}

bool SheetDocument::prepareNext() {
    bool more = false;
    const int32_t result = guardedInOffice([&]() -> int32_t {
        more = mPrivate->cells.paintAhead(mPrivate->book, mPrivate->dpi);
        return MODULE_OK;
    });
    return result == MODULE_OK && more;
}

int32_t SheetDocument::releaseMemory() {
    mPrivate->cells.releaseMemory();
    return MODULE_OK;
}

int32_t SheetDocument::sheetCount(int32_t& count) {
    count = mPrivate->book.count();
    return MODULE_OK;
}

int32_t SheetDocument::title(int32_t sheet, std::u16string& text) {
    Private& d = *mPrivate;
    return guardedInOffice([&]() -> int32_t {
        if (!d.book.has(sheet)) {
            return MODULE_BAD_ARGUMENT;
        }
        const css::uno::Reference<css::container::XNamed> named(d.book.sheet(sheet),
                                                                css::uno::UNO_QUERY_THROW);
        text = toText(named->getName());
        return MODULE_OK;
    });
}

int32_t SheetDocument::columnCount(int32_t sheet, int32_t& count) {
    return mPrivate->onSheet(sheet, [&](const SheetGeometry& geometry) {
        count = geometry.columns.count();
        return MODULE_OK;
    });
}

int32_t SheetDocument::dimensions(int32_t sheet, int32_t& width, int32_t& height) {
    return mPrivate->onSheet(sheet, [&](const SheetGeometry& geometry) {
        width = saturated(geometry.columns.total());
        height = saturated(geometry.rows.total());
        return MODULE_OK;
    });
}

int32_t SheetDocument::cellBounds(int32_t sheet, int32_t x, int32_t y, PixelRect& bounds) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        if (x == -1 && y == -1) {
            bounds = {0, 0, d.headers.rowHeaderWidth(geometry.rows.count()), d.headers.columnHeaderHeight()};
        } else {
            const int32_t column = geometry.columns.trackAt(x);
            const int32_t row = geometry.rows.trackAt(y);
            bounds = d.place(geometry, {column, row, column, row});
        }
        return MODULE_OK;
    });
}

int32_t SheetDocument::cellAt(int32_t sheet, int32_t x, int32_t y, int32_t& column, int32_t& row) {
    return mPrivate->onSheet(sheet, [&](const SheetGeometry& geometry) {
        column = geometry.columns.trackAt(x);
        row = geometry.rows.trackAt(y);
        return MODULE_OK;
    });
}

int32_t SheetDocument::information(DocumentInformation& information) {
    return guardedInOffice([&]() -> int32_t {
        information = informationOf(mPrivate->book.model());
        return MODULE_OK;
    });
}

} // namespace lectern::engine
