// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DocumentInformation.h"
#include "engine/layout/Surface.h"
#include "engine/office/AnyFile.h"
#include "engine/office/Office.h"
#include "engine/protocol/Vocabulary.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lectern::engine {

// A cell or a merged area: its first cell, its rectangle in document pixels, what it
// shows, and its formula if it has one.
struct SheetCell {
    int32_t column = 0;
    int32_t row = 0;
    PixelRect place;
    std::u16string text;
    std::u16string formula;
};

// A workbook. Operations have the meanings of the stg_ functions in
// modules/SheetToGoModule.h. They return module_result codes; outputs are valid with
// MODULE_OK only. Sheet numbers do not count hidden sheets. Use from one thread only.
class SheetDocument {
public:
    // Opens an absolute path that the caller has found to be a readable regular
    // file. An empty password means no password. `temporaryDirectory` receives
    // temporary copies.
    static int32_t open(Office& office, const std::string& path, const std::string& password,
                        const std::string& temporaryDirectory, std::unique_ptr<SheetDocument>& document);
    // The same for a file of any name.
    static int32_t openAny(Office& office, const AnyFile& file, std::unique_ptr<SheetDocument>& document);
    ~SheetDocument();
    SheetDocument(const SheetDocument&) = delete;
    SheetDocument& operator=(const SheetDocument&) = delete;

    // The pixels stay the caller's and must be valid until another surface is
    // set for the area.
    int32_t setSurface(SheetArea area, uint32_t* pixels, int32_t width, int32_t height);
    int32_t setDpi(int32_t dpi);
    // Paints all surfaces that are set.
    int32_t render(int32_t sheet, int32_t x, int32_t y);
    // Prepares for the next window, for some milliseconds; false when nothing is
    // left to do.
    bool prepareNext();
    // Frees the data that is kept only for speed.
    int32_t releaseMemory();

    int32_t sheetCount(int32_t& count);
    int32_t title(int32_t sheet, std::u16string& text);
    int32_t columnCount(int32_t sheet, int32_t& count);
    int32_t dimensions(int32_t sheet, int32_t& width, int32_t& height);
    int32_t cellBounds(int32_t sheet, int32_t x, int32_t y, PixelRect& bounds);
    int32_t cellAt(int32_t sheet, int32_t x, int32_t y, int32_t& column, int32_t& row);

    int32_t commentMarks(int32_t sheet, std::vector<PixelRect>& marks);
    int32_t comment(int32_t sheet, int32_t x, int32_t y, std::u16string& text);

    int32_t setHighlightColor(const Colour& colour);
    // Returns MODULE_NOTHING_THERE when nothing is found.
    int32_t find(int32_t sheet, const std::u16string& text);
    int32_t foundRegions(std::vector<PixelRect>& regions);
    int32_t stopFind();

    int32_t selectArea(int32_t sheet, int32_t left, int32_t top, int32_t width, int32_t height);
    // `count` receives the number of visible tracks among those selected.
    int32_t selectTracks(int32_t sheet, Axis axis, int32_t first, int32_t last, int32_t& count);
    int32_t selectCell(int32_t sheet, int32_t x, int32_t y);
    int32_t clearSelection();
    int32_t copySelection(std::u16string& text);

    // Returns MODULE_REFUSED when the document does not allow sorting.
    int32_t sort(int32_t sheet, int32_t column, bool ascending);
    int32_t hide(int32_t sheet, Axis axis, int32_t first, int32_t last);
    int32_t unhide(int32_t sheet, Axis axis, int32_t first, int32_t last);
    int32_t unhideAll(int32_t sheet, Axis axis);
    int32_t resize(int32_t sheet, Axis axis, int32_t at, int32_t change);
    int32_t autofitColumn(int32_t sheet, int32_t x);

    // What sort, hide, unhide, resize and autofit have changed in a sheet, and what is
    // selected, as numbers with which another engine can restore it. The file must be the
    // same, and freshly opened.
    int32_t changes(int32_t sheet, std::vector<int32_t>& numbers);
    int32_t restoreChanges(int32_t sheet, const std::vector<int32_t>& numbers);
    std::vector<int32_t> selection() const;
    int32_t restoreSelection(const std::vector<int32_t>& numbers);

    // Those of modules/TouchSheetFunctions.h.
    int32_t cell(int32_t sheet, int32_t column, int32_t row, SheetCell& cell);
    int32_t cells(int32_t sheet, int32_t x, int32_t y, int32_t width, int32_t height,
                  std::vector<SheetCell>& cells);
    int32_t tapArea(int32_t sheet, int32_t x, int32_t y, PixelRect& area);
    int32_t setFindOptions(int32_t flags);

    int32_t information(DocumentInformation& information);

private:
    struct Private;
    explicit SheetDocument(std::unique_ptr<Private> d);
    template<class Load>
    static int32_t openLoaded(Load load, std::unique_ptr<SheetDocument>& document);
    std::unique_ptr<Private> mPrivate;
};

} // namespace lectern::engine
