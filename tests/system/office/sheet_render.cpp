// SPDX-License-Identifier: Apache-2.0
// sheet_render FILE SHEET X Y WIDTH HEIGHT DPI OUT.png [FIND [COLUMN_X]]:
// paints a window of a sheet with its headers, for viewing. FIND's hits are
// marked, the column at COLUMN_X is selected. Times go to standard error, in
// milliseconds.
#include "engine/office/sheet/SheetDocument.h"
#include "tests/system/office/OfficeProgram.h"
#include "tests/system/office/Rendering.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

using lectern::engine::Office;
using lectern::engine::PixelRect;
using lectern::engine::SheetArea;
using lectern::engine::SheetDocument;
using rendering::now;

struct Image {
    Image(int32_t w, int32_t h)
        : width(w), height(h), pixels(static_cast<size_t>(w) * static_cast<size_t>(h), 0xFFFFFFFF) {}
    uint32_t* row(int32_t y) { return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width); }
    void draw(Image& from, int32_t x, int32_t y) {
        for (int32_t row0 = 0; row0 < from.height; ++row0) {
            std::copy_n(from.row(row0), from.width, row(y + row0) + x);
        }
    }
    bool write(const char* path) const { return rendering::writePng(path, pixels.data(), width, height); }

    int32_t width;
    int32_t height;
    std::vector<uint32_t> pixels;
};

std::u16string widened(const char* utf8) {
    return std::filesystem::u8path(utf8).u16string();
}

bool paint(SheetDocument& document, int argc, char** argv) {
    const auto number = [&](int i) { return std::atoi(argv[i]); }; // NOLINT(cert-err34-c)
    const int32_t sheet = number(2);
    document.setDpi(number(7));
    PixelRect corner;
    if (document.cellBounds(sheet, -1, -1, corner) != 0) {
        return false;
    }
    Image cells(number(5), number(6));
    Image rows(corner.width, cells.height);
    Image columns(cells.width, corner.height);
    document.setSurface(SheetArea::Cells, cells.pixels.data(), cells.width, cells.height);
    document.setSurface(SheetArea::RowHeaders, rows.pixels.data(), rows.width, rows.height);
    document.setSurface(SheetArea::ColumnHeaders, columns.pixels.data(), columns.width, columns.height);
    if (argc > 9) {
        document.find(sheet, widened(argv[9]));
    }
    if (argc > 10) {
        int32_t count = 0;
        document.setHighlightColor({0xFF, 0xF5, 0x68});
        document.selectTracks(sheet, lectern::engine::Axis::Columns, number(10), number(10), count);
    }
    const double start = now();
    const int32_t first = document.render(sheet, number(3), number(4));
    const double painted = now();
    document.render(sheet, number(3), number(4));
    std::fprintf(stderr, "result %d; paint %.1f, again %.1f\n", first, painted - start, now() - painted);
    Image all(cells.width + rows.width, cells.height + columns.height);
    all.draw(cells, rows.width, columns.height);
    all.draw(rows, 0, columns.height);
    all.draw(columns, rows.width, 0);
    return first == 0 && all.write(argv[8]);
}

bool render(int argc, char** argv, Office& office, const std::string& directory) {
    const char* password = std::getenv("SHEET_PASSWORD");
    std::unique_ptr<SheetDocument> document;
    const double start = now();
    const int32_t result =
        SheetDocument::open(office, argv[1], password != nullptr ? password : "", directory, document);
    int32_t width = 0;
    int32_t height = 0;
    if (document) {
        document->setDpi(std::atoi(argv[7]));                    // NOLINT(cert-err34-c)
        document->dimensions(std::atoi(argv[2]), width, height); // NOLINT(cert-err34-c)
    }
    std::fprintf(stderr, "open %d in %.0f, sheet %d x %d\n", result, now() - start, width, height);
    return document && paint(*document, argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 9 || argc > 11) {
        std::fprintf(stderr,
                     "usage: sheet_render FILE SHEET X Y WIDTH HEIGHT DPI OUT.png [FIND [COLUMN_X]]\n");
        return 2;
    }
    lectern::engine::test::runWithOffice("/tmp/sheet-render-XXXXXX",
                                         [&](Office& office, const std::string& directory) {
                                             return render(argc, argv, office, directory) ? 0 : 1;
                                         });
}
