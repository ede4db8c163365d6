// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DocumentInformation.h"
#include "engine/layout/Surface.h"
#include "engine/office/Office.h"
#include "engine/protocol/Vocabulary.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lectern::engine {

// A workbook. The operations and their meanings are those of the stg_ functions
// in modules/SheetToGoModule.h; results are module_result codes, and what is
// given back means something only with MODULE_OK. Sheets are counted without
// the hidden ones. Used by one thread.
class SheetDocument {
public:
    // Opens an absolute path, already known to be a readable regular file. An
    // empty password is none. temporaryDirectory is for copies of its own.
    static int32_t open(Office& office, const std::string& path, const std::string& password,
                        const std::string& temporaryDirectory, std::unique_ptr<SheetDocument>& document);
    ~SheetDocument();
    SheetDocument(const SheetDocument&) = delete;
    SheetDocument& operator=(const SheetDocument&) = delete;

    // A surface stays the caller's and valid until another is set for its area.
    int32_t setSurface(SheetArea area, uint32_t* pixels, int32_t width, int32_t height);
    int32_t setDpi(int32_t dpi);
    // Paints the surfaces that are set.
    int32_t render(int32_t sheet, int32_t x, int32_t y);

    int32_t sheetCount(int32_t& count);
    int32_t title(int32_t sheet, std::u16string& text);
    int32_t columnCount(int32_t sheet, int32_t& count);
    int32_t dimensions(int32_t sheet, int32_t& width, int32_t& height);
    int32_t cellBounds(int32_t sheet, int32_t x, int32_t y, PixelRect& bounds);
    int32_t cellAt(int32_t sheet, int32_t x, int32_t y, int32_t& column, int32_t& row);

    int32_t commentMarks(int32_t sheet, std::vector<PixelRect>& marks);
    int32_t comment(int32_t sheet, int32_t x, int32_t y, std::u16string& text);

    int32_t setHighlightColour(const Colour& colour);
    // MODULE_NOTHING_THERE when nothing is found.
    int32_t find(int32_t sheet, const std::u16string& text);
    int32_t foundRegions(std::vector<PixelRect>& regions);
    int32_t stopFind();

    int32_t selectArea(int32_t sheet, int32_t left, int32_t top, int32_t width, int32_t height);
    // count: of the visible ones.
    int32_t selectTracks(int32_t sheet, Axis axis, int32_t first, int32_t last, int32_t& count);
    int32_t selectCell(int32_t sheet, int32_t x, int32_t y);
    int32_t clearSelection();
    int32_t copySelection(std::u16string& text);

    // MODULE_REFUSED when the document does not allow it.
    int32_t sort(int32_t sheet, int32_t column, bool ascending);
    int32_t hide(int32_t sheet, Axis axis, int32_t first, int32_t last);
    int32_t unhide(int32_t sheet, Axis axis, int32_t first, int32_t last);
    int32_t unhideAll(int32_t sheet, Axis axis);
    int32_t resize(int32_t sheet, Axis axis, int32_t at, int32_t change);
    int32_t autofitColumn(int32_t sheet, int32_t x);

    int32_t information(DocumentInformation& information);

private:
    struct Private;
    explicit SheetDocument(std::unique_ptr<Private> d);
    std::unique_ptr<Private> mPrivate;
};

} // namespace lectern::engine
