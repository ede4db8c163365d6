// SPDX-License-Identifier: Apache-2.0
// Commands on a selection.
#include "tests/unit/excel/ExcelTest.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

class ExcelCommandsTest : public ExcelTest {
protected:
    static std::unique_ptr<TestExcel> openWith(const CpRect& selection) {
        auto view = openView();
        view->mSelection = selection;
        view->mOffscreenDirty = false;
        return view;
    }
    static void expectShown(TestExcel& view) {
        EXPECT_TRUE(view.mOffscreenDirty);
        EXPECT_THAT(notifications(view), ElementsAre(_INVALIDATED));
        view.mOffscreenDirty = false;
    }
};

TEST_F(ExcelCommandsTest, ClearingLeavesTheRectangle) {
    const auto view = openWith({130, 0, 250, 0});
    view->mSelectionActive = true;
    EXPECT_EQ(view->clearSelection(), 0);
    EXPECT_THAT(calls(), ElementsAre("stg_clear_selection()"));
    EXPECT_EQ(view->mSelection, CpRect(130, 0, 250, 0));
    EXPECT_TRUE(view->mSelectionActive);
    expectShown(*view);
}

TEST_F(ExcelCommandsTest, ColumnsAreHiddenAndShown) {
    const auto view = openWith({130, 0, 250, 0});
    view->hideSelection();
    EXPECT_THAT(calls(), ElementsAre("stg_hide_columns(0, 130, 250)"));
    expectShown(*view);
    view->unhideSelection();
    EXPECT_THAT(calls(), ElementsAre("stg_unhide_columns(0, 130, 250)"));
    expectShown(*view);
}

TEST_F(ExcelCommandsTest, RowsAreHiddenAndShown) {
    const auto view = openWith({0, 130, 0, 250});
    view->hideSelection();
    EXPECT_THAT(calls(), ElementsAre("stg_hide_rows(0, 130, 250)"));
    expectShown(*view);
    view->unhideSelection();
    EXPECT_THAT(calls(), ElementsAre("stg_unhide_rows(0, 130, 250)"));
    expectShown(*view);
}

TEST_F(ExcelCommandsTest, OneSideFromZeroIsAColumnSelection) {
    const auto view = openWith({0, 0, 250, 0});
    view->hideSelection();
    EXPECT_THAT(calls(), ElementsAre("stg_hide_columns(0, 0, 250)"));
    view->mSelection.Set(-30, 0, 0, 0);
    view->hideSelection();
    EXPECT_THAT(calls(), ElementsAre("stg_hide_columns(0, -30, 0)"));
}

TEST_F(ExcelCommandsTest, WithoutASelectionItIsTheFirstRow) {
    const auto view = openView();
    view->hideSelection();
    view->unhideSelection();
    EXPECT_THAT(calls(), ElementsAre("stg_hide_rows(0, 0, 0)", "stg_unhide_rows(0, 0, 0)"));
}

TEST_F(ExcelCommandsTest, EverythingIsShownRowsFirst) {
    const auto view = openWith({130, 0, 250, 0});
    view->unhideAll();
    EXPECT_THAT(calls(), ElementsAre("stg_unhide_all_rows(0)", "stg_unhide_all_columns(0)"));
    expectShown(*view);
}

TEST_F(ExcelCommandsTest, CommandsWorkOnTheSheetShown) {
    fakeSheet().sheets.resize(3);
    const auto view = openWith({130, 0, 250, 0});
    view->mCurrentSheet = 2;
    view->hideSelection();
    view->unhideAll();
    EXPECT_THAT(calls(), ElementsAre("stg_hide_columns(2, 130, 250)", "stg_unhide_all_rows(2)",
                                     "stg_unhide_all_columns(2)"));
}

TEST_F(ExcelCommandsTest, SortingAsksTheModuleInOrder) {
    const auto view = openWith({130, 0, 250, 0});
    EXPECT_EQ(view->sortAscending(), 3);
    EXPECT_THAT(calls(), ElementsAre("stg_get_cell_reference_at_location(0, 250, 10)",
                                     "stg_select_area(0, 0, 0, 4000, 8000)", "stg_sort_ascending(0, 3)",
                                     "stg_select_column(0, 250, 250)", "stg_get_comment_marks_rects(0)"));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), IsEmpty()) << "the caller asks for the paint";
    EXPECT_EQ(view->sortDescending(), 3);
    EXPECT_EQ(calls().at(2), "stg_sort_descending(0, 3)");
}

TEST_F(ExcelCommandsTest, FailedSortIsMinusOneAndStillSelectsTheColumn) {
    const auto view = openWith({130, 0, 250, 0});
    fakeSheet().results["stg_sort_ascending"] = 7;
    fakeSheet().results["stg_sort_descending"] = -7;
    EXPECT_EQ(view->sortAscending(), -1);
    EXPECT_EQ(calls().at(3), "stg_select_column(0, 250, 250)");
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_EQ(view->sortDescending(), -1);
}

TEST_F(ExcelCommandsTest, SortBeyondTheLastColumnIsTheModulesToJudge) {
    const auto view = openWith({INT_MAX, 0, INT_MAX, 0});
    EXPECT_EQ(view->sortAscending(), 49);
    EXPECT_EQ(calls().front(), "stg_get_cell_reference_at_location(0, 2147483647, 10)");
}

class ExcelCopyTest : public ExcelCommandsTest {
protected:
    void SetUp() override {
        ExcelCommandsTest::SetUp();
        char name[] = "/tmp/excel-copy-XXXXXX";
        ASSERT_NE(mkdtemp(name), nullptr);
        folder = name;
    }
    void TearDown() override {
        std::filesystem::remove_all(folder);
        ExcelCommandsTest::TearDown();
    }
    std::string path(const char* name = "copy.txt") const { return folder + "/" + name; }
    static std::string contents(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }
    // Text that a copy writes to standard output and to standard error.
    static std::pair<std::string, std::string> said(TestExcel& view, const char* path) {
        CaptureStdout();
        CaptureStderr();
        EXPECT_EQ(view.copySelection(path), 0);
        std::string out = GetCapturedStdout();
        return {std::move(out), GetCapturedStderr()};
    }
    using Said = std::pair<std::string, std::string>;

    const Said nothing = {"", ""};
    const Said noFile = {"Excel::copySelection: fileptr is null", ""};
    const Said failed = {"", "Failure writing\n"};
    std::string folder;
};

TEST_F(ExcelCopyTest, TextIsWrittenAndTheSelectionCleared) {
    fakeSheet().selection = u"a\tb\nc\u00e9\n";
    const auto view = openWith({130, 0, 250, 0});
    EXPECT_EQ(said(*view, path().c_str()), failed) << "as for any length but four bytes";
    EXPECT_EQ(contents(path()), "a\tb\nc\u00e9\n");
    EXPECT_THAT(calls(), ElementsAre("stg_copy_selection(4096, 0)", "stg_clear_selection()"));
    expectShown(*view);
}

TEST_F(ExcelCopyTest, OnlyFourBytesCountAsWritten) {
    const auto view = openView();
    for (const auto& [text, expected] : {std::pair<std::u16string, Said>(u"abcd", nothing),
                                         {u"a\u20ac", nothing},
                                         {u"\u00e9\u00e9", nothing},
                                         {u"", failed},
                                         {u"abc", failed},
                                         {u"abcde", failed},
                                         {u"abc\u00e9", failed}}) {
        fakeSheet().selection = text;
        EXPECT_EQ(said(*view, path().c_str()), expected);
    }
    EXPECT_EQ(contents(path()), "abc\u00e9");
}

TEST_F(ExcelCopyTest, OldContentsGo) {
    std::ofstream(path()) << std::string(5000, 'x');
    fakeSheet().selection = u"abcd";
    const auto view = openView();
    said(*view, path().c_str());
    EXPECT_EQ(contents(path()), "abcd");
}

TEST_F(ExcelCopyTest, LongTextIsCutAtTheBuffer) {
    fakeSheet().selection = std::u16string(10000, u'\u20ac');
    const auto view = openView();
    said(*view, path().c_str());
    EXPECT_EQ(contents(path()).size(), 3U * 4095);
}

TEST_F(ExcelCopyTest, PathsThatCannotBeWrittenAreSaid) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(symlink("/dev/null", path("device").c_str()), 0);
    const auto view = openWith({130, 0, 250, 0});
    for (const std::string& bad : {std::string(), path("none/at/all"), folder, path("pipe"), path("device"),
                                   "/" + std::string(5000, 'x')}) {
        EXPECT_EQ(said(*view, bad.c_str()), noFile) << bad;
        EXPECT_THAT(calls(), ElementsAre("stg_copy_selection(4096, 0)", "stg_clear_selection()"));
        expectShown(*view);
    }
    EXPECT_EQ(said(*view, nullptr), noFile);
}

TEST_F(ExcelCopyTest, FailedCopyWritesAnEmptyFile) {
    fakeSheet().results["stg_copy_selection"] = 9;
    const auto view = openView();
    EXPECT_EQ(said(*view, path().c_str()), failed);
    EXPECT_TRUE(std::filesystem::exists(path()));
    EXPECT_EQ(contents(path()), "");
}

TEST_F(ExcelCopyTest, DocumentThatFailedToOpenCopiesNothing) {
    const auto view = failedView();
    EXPECT_EQ(said(*view, path().c_str()), failed);
    EXPECT_EQ(contents(path()), "");
    EXPECT_THAT(calls(), IsEmpty());
}

} // namespace
