// SPDX-License-Identifier: Apache-2.0
// A workbook that loses its engine before every step shows the same as one that does not.

#include "tests/system/sheet/WorkbookView.h"

#include <signal.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

namespace lectern::test {
namespace {

const STGFunc& STG = sheetModule();

using Step = std::function<std::int32_t(const WorkbookView&)>;

std::string boats(bool withHeader) {
    std::vector<std::string> rows{"plain", "OUT"};
    if (withHeader) {
        rows.emplace_back("Boat,Fare,Seats,Night");
    }
    for (int row = 0; row < 40; ++row) {
        rows.push_back("Boat " + std::to_string(row * 7 % 40) + "," + std::to_string(row * 13 % 10) + "," +
                       std::to_string(row % 4) + "," + std::to_string(row));
    }
    return generated(withHeader ? "boats.xlsx" : "headless.xlsx", rows);
}

void killEngines() {
    for (const EngineInfo& engine : enginesOf(getpid())) {
        kill(engine.pid, SIGKILL);
    }
    for (int i = 0; i < 2000 && !enginesOf(getpid()).empty(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

// What a view shows after a step, and the result of that.
struct Shown {
    std::int32_t result;
    std::pair<std::int32_t, std::int32_t> dimensions;
    std::vector<std::uint32_t> cells, rows, columns;
    std::string copied;
    bool operator==(const Shown&) const = default;
};

std::vector<Shown> showAll(const std::string& path, const std::vector<Step>& steps, bool losesEngine) {
    WorkbookView view(path);
    view.show(0, 500, 700, 120);
    std::vector<Shown> all;
    for (const Step& step : steps) {
        if (losesEngine) {
            killEngines();
        }
        const std::int32_t result = step(view);
        view.render(0, 0);
        std::uint16_t text[4000] = {};
        std::int32_t length = 0;
        STG.stg_copy_selection(view.get(), text, 4000, 0, &length); // fails without a selection
        all.push_back({result, view.dimensions(), view.cells().pixels, view.rowHeaders().pixels,
                       view.columnHeaders().pixels, std::string(text, text + std::clamp(length, 0, 3999))});
    }
    return all;
}

void expectTheSame(const std::vector<Step>& steps, bool withHeader = true) {
    const std::string path = boats(withHeader);
    const std::vector<Shown> kept = showAll(path, steps, false);
    const std::vector<Shown> lost = showAll(path, steps, true);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(kept[i].result, lost[i].result) << "step " << i;
        EXPECT_EQ(kept[i].dimensions, lost[i].dimensions) << "step " << i;
        EXPECT_TRUE(kept[i].cells == lost[i].cells) << "cells, step " << i;
        EXPECT_TRUE(kept[i].rows == lost[i].rows) << "row headers, step " << i;
        EXPECT_TRUE(kept[i].columns == lost[i].columns) << "column headers, step " << i;
        EXPECT_EQ(kept[i].copied, lost[i].copied) << "step " << i;
    }
}

Step sortBy(std::int32_t column, bool ascending) {
    return [=](const WorkbookView& view) {
        return ascending ? STG.stg_sort_ascending(view.get(), 0, column)
                         : STG.stg_sort_descending(view.get(), 0, column);
    };
}
// From one pixel to another.
Step hideRows(std::int32_t from, std::int32_t to) {
    return [=](const WorkbookView& view) { return STG.stg_hide_rows(view.get(), 0, from, to); };
}
Step unhideRows(std::int32_t from, std::int32_t to) {
    return [=](const WorkbookView& view) { return STG.stg_unhide_rows(view.get(), 0, from, to); };
}

TEST(LostWorkbookTest, KeepsItsOrder) {
    expectTheSame({sortBy(1, true), sortBy(2, false), sortBy(1, false), sortBy(3, true), sortBy(2, true)});
}

TEST(LostWorkbookTest, KeepsWhatIsHiddenAndInWhichOrder) {
    expectTheSame({hideRows(60, 100), hideRows(40, 160), sortBy(3, false), unhideRows(40, 60),
                   unhideRows(40, 60), hideRows(200, 240),
                   [](const WorkbookView& view) { return STG.stg_unhide_all_rows(view.get(), 0); },
                   [](const WorkbookView& view) { return STG.stg_hide_columns(view.get(), 0, 10, 10); },
                   sortBy(2, true)});
}

TEST(LostWorkbookTest, KeepsTheHeightsThatASortLeaves) {
    expectTheSame({[](const WorkbookView& view) { return STG.stg_resize_row(view.get(), 0, 5, 7); },
                   [](const WorkbookView& view) { return STG.stg_resize_row(view.get(), 0, 100, 20); },
                   sortBy(1, true), hideRows(60, 100), sortBy(3, false), unhideRows(60, 100),
                   sortBy(0, true)},
                  false);
}

TEST(LostWorkbookTest, KeepsItsSizesHitsAndSelection) {
    const std::uint8_t colour[] = {1, 200, 3};
    expectTheSame(
        {[](const WorkbookView& view) { return STG.stg_resize_column(view.get(), 0, 5, 33); },
         [](const WorkbookView& view) { return STG.stg_resize_row(view.get(), 0, 5, 7); },
         [](const WorkbookView& view) { return STG.stg_resize_column(view.get(), 0, 5, -11); },
         [](const WorkbookView& view) { return STG.stg_autofit_column(view.get(), 0, 200); },
         [&](const WorkbookView& view) { return STG.stg_set_highlight_color(view.get(), colour); },
         [](const WorkbookView& view) { return STG.stg_find(view.get(), wide("3").data(), 0, 0, 0, 0); },
         [](const WorkbookView& view) {
             std::int32_t count = 0;
             return STG.stg_select_row(view.get(), 0, 50, 90, &count);
         },
         sortBy(0, true), [](const WorkbookView& view) { return STG.stg_set_dpi(view.get(), 96); },
         [](const WorkbookView& view) { return STG.stg_clear_selection(view.get()); }});
}

} // namespace
} // namespace lectern::test
