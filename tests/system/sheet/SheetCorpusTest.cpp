// SPDX-License-Identifier: Apache-2.0
// Workbooks shown from end to end: generated ones and a collection. Every
// workbook of the collection opens or is refused in time.

#include "tests/system/sheet/WorkbookView.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <set>

namespace lectern::test {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t SIZE = 400;
constexpr std::int32_t MOST_SHEETS = 3; // shown of each workbook
// Results that are due to the file, not to the engine.
const std::set<std::int32_t> REFUSALS = {MODULE_DAMAGED, MODULE_WRONG_KIND, MODULE_NEEDS_PASSWORD};

// The workbooks in and below the folder that LECTERN_CORPUS names.
std::vector<fs::path> collectedWorkbooks() {
    const char* const folder = std::getenv("LECTERN_CORPUS");
    std::vector<fs::path> files;
    if (folder != nullptr) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path().extension() == ".xls" || entry.path().extension() == ".xlsx") {
                files.push_back(entry.path());
            }
        }
    }
    EXPECT_FALSE(files.empty()) << "LECTERN_CORPUS names no folder of workbooks";
    std::sort(files.begin(), files.end());
    return files;
}

// The strips have lines where cells begin, and a window moved by a few pixels
// shows the same cells.
void checkWindow(WorkbookView& view, std::int32_t x, std::int32_t y) {
    constexpr std::int32_t MOVED = 7;
    constexpr std::uint32_t HEADER_LINE = 0xFF8C8C8C;
    view.render(x, y);
    const auto [width, height] = view.dimensions();
    for (std::int32_t i = 0; i < SIZE && x + i < width; i++) {
        ASSERT_EQ(view.columnHeaders().at(i, 0) == HEADER_LINE, x + i > 0 && view.bounds(x + i, y).x == x + i)
            << "column of pixels " << x + i;
    }
    for (std::int32_t i = 0; i < SIZE && y + i < height; i++) {
        ASSERT_EQ(view.rowHeaders().at(0, i) == HEADER_LINE, y + i > 0 && view.bounds(x, y + i).y == y + i)
            << "row of pixels " << y + i;
    }
    const Picture before = view.columnHeaders();
    view.render(x + MOVED, y);
    for (std::int32_t i = 0; i + MOVED < SIZE; i++) {
        ASSERT_EQ(view.columnHeaders().at(i, 0), before.at(i + MOVED, 0)) << "column of pixels " << x + i;
    }
}

void lookThrough(WorkbookHandle workbook) {
    WorkbookView view(std::move(workbook));
    const auto sheets = static_cast<std::int32_t>(view.titles().size());
    EXPECT_GE(sheets, 1);
    for (std::int32_t sheet = 0; sheet < std::min(sheets, MOST_SHEETS); sheet++) {
        for (const std::int32_t dpi : {144, 251}) {
            view.show(sheet, SIZE, SIZE, dpi);
            const auto [width, height] = view.dimensions();
            checkWindow(view, 0, 0);
            checkWindow(view, std::max(width - SIZE, 0), std::max(height - SIZE, 0));
        }
        view.commentMarks();
        view.find("a");
    }
}

TEST(SheetEndsTest, MadeWorkbooksAreShownInOrder) {
    for (const std::string& path :
         {sample("tour.xlsx"), sample("tour.xls"), generated("long.xlsx", {"long", "2000", "OUT"}),
          generated("coloured.xlsx", {"coloured", "OUT"}), generated("labelled.xlsx", {"labelled", "OUT"}),
          generated("spread.xlsx", {"spread", "OUT"}), generated("charted.xlsx", {"charted", "OUT"}),
          generated("noted.xlsx", {"noted", "OUT"}), generated("empty.xlsx", {"plain", "OUT"})}) {
        SCOPED_TRACE(path);
        WorkbookHandle workbook;
        ASSERT_EQ(workbook.open(path, "/tmp"), MODULE_OK);
        lookThrough(std::move(workbook));
    }
}

TEST(SheetCorpusTest, CollectedWorkbooksAreShownInOrderOrRefused) {
    for (const fs::path& path : collectedWorkbooks()) {
        SCOPED_TRACE(path);
        WorkbookHandle workbook;
        const auto start = std::chrono::steady_clock::now();
        const std::int32_t opened = workbook.open(path.string(), "/tmp");
        const auto took = std::chrono::steady_clock::now() - start;
        std::printf(
            "%-50s %2d %6lld ms\n", path.filename().c_str(), opened,
            static_cast<long long>(std::chrono::duration_cast<std::chrono::milliseconds>(took).count()));
        if (opened == MODULE_OK) {
            lookThrough(std::move(workbook));
        } else {
            EXPECT_EQ(REFUSALS.count(opened), 1U) << opened;
        }
    }
}

} // namespace
} // namespace lectern::test
