// SPDX-License-Identifier: Apache-2.0
// Requests for things that no sheet has: the service answers as usual and survives.
#include "modules/ModuleResults.h"
#include "tests/system/support/Python.h"
#include "tests/system/support/ServiceFixture.h"
#include "tests/system/support/SheetScreen.h"

#include <sys/stat.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>

namespace {

constexpr int EXTREMES[] = {INT_MIN, -100000, -1, 100000, INT_MAX};

class SheetBadInputTest : public ServiceTest {
protected:
    std::string plain(const std::string& name, std::vector<std::string> rows) const {
        rows.insert(rows.begin(), {"plain", "OUT"});
        return generated(name, "make_xlsx.py", rows);
    }
    std::string fares() const { return plain("fares.xlsx", {"3,c", "1,a", "2,b"}); }
    std::string write(const std::string& name, const std::string& content) const {
        const std::string path = folder.path() + "/" + name;
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    std::string copyFile() const { return folder.path() + "/copied.txt"; }
    std::string copiedColumn(SheetScreen& screen, size_t column) const {
        screen.tapColumn(screen.columns().at(column));
        return screen.copy(copyFile());
    }
    // Sends everything that a client may send, to a document in any state.
    void sendEverything(SheetScreen& screen) const {
        const std::string docid = screen.document().docidPayload();
        for (const char* method : {"getSheetList", "getLastComment", "getColumnCount", "sortAscending",
                                   "sortDescending", "hideSelection", "unhideSelection", "unhideAll"}) {
            EXPECT_TRUE(client->call("/excel", method, docid).replied) << method;
        }
        for (const char* method :
             {"nextResult", "previousResult", "closeSearch", "clearSelection", "getDocProperties"}) {
            EXPECT_TRUE(client->call("/common", method, docid).replied) << method;
        }
        EXPECT_EQ(screen.call("jumpToSheet", R"(,"sheet":0)"), R"({ "cursheet": 0 })");
        EXPECT_FALSE(screen.document().call("/common", "Search", R"(,"search":"a")").empty());
        for (const char* mode : {"on", "off"}) {
            EXPECT_EQ(screen.call("resizeMode", std::string(R"(,"mode":")") + mode + "\""),
                      R"({ "returnValue": true })");
            screen.stroke(100, 3, 150, 3);
            screen.stroke(3, 100, 3, 150);
            screen.stroke(100, 100, 50, 20);
        }
        for (const auto& [x, y] : {std::pair(100, 3), {3, 100}, {100, 100}, {0, 0}}) {
            screen.document().tap(x, y);
        }
        screen.document().pinch(1.3);
        screen.document().doubleTap(100, 100);
        screen.rest();
        screen.copy(copyFile());
        EXPECT_EQ(screen.document().paint(), 0);
    }
};

TEST_F(SheetBadInputTest, SheetNumbersOutOfRange) {
    SheetScreen screen(*client, *queue, sample("tour.xlsx"));
    const std::vector<uint32_t> first = screen.pixels();
    for (const int sheet : {-1, 5, INT_MAX, INT_MIN}) { // 5 sheets are visible
        const std::string number = std::to_string(sheet);
        EXPECT_EQ(screen.call("jumpToSheet", ",\"sheet\":" + number), "{ \"cursheet\": " + number + " }");
        EXPECT_EQ(screen.call("getSheetList").find("check.png"), std::string::npos);
        EXPECT_EQ(screen.call("sortAscending"), R"({ "column": -1 })");
        EXPECT_EQ(screen.document().call("/common", "Search", R"(,"search":"a")"), R"({ "resultcount": 0 })");
        screen.document().call("/common", "closeSearch");
        screen.tapColumn({100, 200});
        screen.tapRow({100, 200});
        screen.call("hideSelection");
        screen.rest();
    }
    screen.show(0);
    EXPECT_EQ(screen.pixels(), first);
    EXPECT_EQ(screen.call("getColumnCount"), R"({ "columncnt": 21 })");
}

TEST_F(SheetBadInputTest, TapsAndStrokesOutsideTheScreenAndTheSheet) {
    SheetScreen screen(*client, *queue, fares());
    const std::vector<uint32_t> before = screen.pixels();
    for (const int far : EXTREMES) {
        for (const auto& [x, y] : {std::pair(far, 100), {100, far}, {far, far}, {far, 3}, {3, far}}) {
            screen.document().tap(x, y);
            screen.document().doubleTap(x, y);
            screen.document().doubleTap(x, y);
            screen.document().doubleTap(x, y);
            screen.stroke(x, y, 100, 100);
            screen.stroke(100, 100, x, y);
            screen.stroke(100, 3, x, y);
            screen.stroke(3, 100, x, y);
            screen.document().call("/events", "handleFlick",
                                   ",\"xCoord\":" + std::to_string(x) + ",\"yCoord\":" + std::to_string(y));
            screen.rest();
        }
    }
    screen.document().call("/common", "clearSelection");
    screen.zoom(2.0);
    screen.scrollTo(0, 0);
    EXPECT_EQ(screen.pixels(), before);
}

TEST_F(SheetBadInputTest, ColumnsPastTheEndAreTheLastOne) {
    SheetScreen screen(*client, *queue, fares(), 900, 300);
    for (int i = 0; i < 3; ++i) { // leaves three of the 21 columns that every sheet has
        const std::vector<SheetScreen::Header> columns = screen.columns();
        ASSERT_GE(columns.size(), 6U);
        screen.stroke(columns[1].middle(), 3, columns[columns.size() - 1].middle(), 3);
        screen.call("hideSelection");
        screen.rest();
    }
    const std::vector<SheetScreen::Header> columns = screen.columns();
    ASSERT_LE(columns.size(), 5U);
    screen.document().call("/common", "clearSelection");
    const std::vector<uint32_t> before = screen.pixels();
    screen.document().tap(screen.width() - 2, 3); // on the background beyond them
    EXPECT_EQ(screen.notices().count(4), 1U);
    // The last column follows the last one that has a line at its end.
    for (int x = 0; x < columns.back().end; ++x) {
        ASSERT_EQ(screen.at(x, 60), before[static_cast<size_t>(60 * screen.width() + x)]) << x;
    }
    EXPECT_EQ(screen.at(columns.back().end + 5, 60), 0xFFFFF568);
    EXPECT_EQ(screen.call("sortAscending"), R"({ "column": -1 })") << "nothing is in it";
    EXPECT_EQ(copiedColumn(screen, 0), "3\n1\n2");
}

TEST_F(SheetBadInputTest, ASortThatTheDocumentRefusesShowsAndChangesNothing) {
    SheetScreen screen(*client, *queue, sample("tour.xlsx"));
    screen.show(4); // protected
    const std::vector<uint32_t> before = screen.pixels();
    for (const char* method : {"sortAscending", "sortDescending"}) {
        screen.tapColumn(screen.columns().at(0));
        EXPECT_EQ(screen.call(method), R"({ "column": -1 })");
        EXPECT_EQ(screen.copy(copyFile()), "30\n10\n20");
        EXPECT_EQ(screen.pixels(), before);
    }
}

TEST_F(SheetBadInputTest, ASortAcrossMergedCellsChangesNothing) {
    SheetScreen screen(*client, *queue, generated("gaps.xlsx", "make_xlsx.py", {"gaps", "OUT"}));
    screen.show(1);
    screen.tapColumn(screen.columns().at(0));
    EXPECT_EQ(screen.call("sortAscending"), R"({ "column": -1 })");
    EXPECT_EQ(screen.copy(copyFile()), "3\n1\n2");
}

TEST_F(SheetBadInputTest, ResizingToNothingOrToAHundredThousandPixelsChangesNothing) {
    SheetScreen screen(*client, *queue, fares());
    const std::vector<uint32_t> before = screen.pixels();
    const SheetScreen::Header column = screen.columns().at(1);
    const SheetScreen::Header row = screen.rows().at(2);
    screen.call("resizeMode", R"(,"mode":"on")");
    for (const int way : {-column.end + column.begin, -10000, 100000}) {
        EXPECT_EQ(screen.stroke(column.end, 3, column.end + way, 3).count(6), 1U) << way;
        EXPECT_EQ(screen.stroke(3, row.end, 3, row.end + way).count(6), 1U) << way;
    }
    screen.call("resizeMode", R"(,"mode":"off")");
    screen.rest();
    EXPECT_EQ(screen.pixels(), before);
}

TEST_F(SheetBadInputTest, CopiesToWhatCannotBeWrittenAreTold) {
    SheetScreen screen(*client, *queue, fares());
    const std::string pipe = folder.path() + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path :
         {folder.path() + "/none/copied.txt", folder.path(), pipe, std::string("/dev/full"), std::string()}) {
        screen.tapColumn(screen.columns().at(0));
        EXPECT_EQ(screen.call("copySelection", ",\"column\":\"" + path + "\""), R"({ "returnValue": true })")
            << path;
    }
    EXPECT_EQ(copiedColumn(screen, 0), "3\n1\n2");
}

TEST_F(SheetBadInputTest, BeforeAnySelectionItIsTheFirstColumnsAndRowsTurn) {
    SheetScreen screen(*client, *queue, fares());
    EXPECT_EQ(screen.lastComment(), "");
    EXPECT_EQ(screen.copy(copyFile()), "");
    EXPECT_TRUE(std::filesystem::exists(copyFile()));
    const auto firstRow = [&] {
        screen.tapRow(screen.rows().at(0));
        return screen.copy(copyFile());
    };
    screen.call("hideSelection");
    EXPECT_EQ(firstRow(), "1\ta");
    screen.call("unhideAll");
    EXPECT_EQ(firstRow(), "3\tc");
    SheetScreen other(*client, *queue, fares());
    EXPECT_EQ(other.call("sortAscending"), R"({ "column": 0 })");
    EXPECT_EQ(copiedColumn(other, 1), "a\nb\nc");
}

TEST_F(SheetBadInputTest, ADocumentThatFailedToOpenSurvivesEverything) {
    SheetScreen screen(*client, *queue, folder.path() + "/none.xlsx");
    EXPECT_EQ(screen.document().openResult(), MODULE_NOT_FOUND);
    const std::vector<uint32_t> before = screen.pixels();
    sendEverything(screen);
    EXPECT_EQ(screen.pixels(), before);
    EXPECT_EQ(screen.call("getSheetList"), "");
    EXPECT_EQ(screen.call("getColumnCount"), R"({ "columncnt": 0 })");
    EXPECT_EQ(screen.call("sortAscending"), R"({ "column": -1 })");
    EXPECT_EQ(screen.document().call("/common", "Search", R"(,"search":"a")"), R"({ "resultcount": 0 })");
    SheetScreen other(*client, *queue, fares());
    EXPECT_EQ(copiedColumn(other, 0), "3\n1\n2");
}

TEST_F(SheetBadInputTest, ADocumentWhoseEngineIsGoneSurvivesEverything) {
    const std::string path = fares();
    SheetScreen lost(*client, *queue, path);
    const std::vector<pid_t> engines = descendants("lectern-engine");
    SheetScreen kept(*client, *queue, sample("tour.xlsx"));
    std::filesystem::remove(path);
    for (const pid_t engine : engines) {
        kill(engine, SIGKILL);
    }
    sendEverything(lost);
    EXPECT_EQ(lost.call("sortAscending"), R"({ "column": -1 })");
    EXPECT_EQ(copiedColumn(kept, 0).substr(0, 10), "Passengers");
}

TEST_F(SheetBadInputTest, SheetMethodsOnATextAreRefused) {
    TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    for (const char* method :
         {"getSheetList", "getLastComment", "getColumnCount", "sortAscending", "unhideAll"}) {
        EXPECT_EQ(document.call("/excel", method),
                  R"({ "errorCode": "errWrongType", "errorText": "Not an Excel document" })");
    }
}

TEST_F(SheetBadInputTest, WhatIsNoWorkbookIsRefused) {
    const std::string whole = readFile(sample("tour.xlsx"));
    const std::pair<std::string, std::set<int>> cases[] = {
        {write("half.xlsx", whole.substr(0, whole.size() / 2)), {MODULE_DAMAGED}},
        {write("noise.xls", std::string("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8) + std::string(9000, 'x')),
         {MODULE_DAMAGED}},
        {write("table.xls", "Boat,Fare\nTern,30\n"), {MODULE_DAMAGED}},
        {write("tabs.xls", "Boat\tFare\nTern\t30\n"), {MODULE_DAMAGED}},
        {write("page.xls", "<html><table><tr><td>Boat</td></tr></table></html>"), {MODULE_DAMAGED}},
        {write("table.xlsx", "Boat,Fare\nTern,30\n"), {MODULE_WRONG_KIND}}, // read as a text document
        {write("text.xlsx", readFile(sample("tour.docx"))), {MODULE_WRONG_KIND}},
    };
    for (const auto& [path, results] : cases) {
        SheetScreen screen(*client, *queue, path);
        EXPECT_EQ(results.count(screen.document().openResult()), 1U)
            << path << " gives " << screen.document().openResult();
    }
}

TEST_F(SheetBadInputTest, PasswordsAreAskedForCheckedAndUsed) {
    for (const char* name : {"locked.xlsx", "locked.xls"}) {
        for (const auto& [password, result] : {std::pair("", MODULE_NEEDS_PASSWORD),
                                               {"not this", MODULE_WRONG_PASSWORD},
                                               {"harbour", MODULE_OK}}) {
            TestDocument::Options options;
            options.password = password;
            const TestDocument document(*client, *queue, sample(name), 320, 480, options);
            EXPECT_EQ(document.openResult(), result) << name << " with '" << password << "'";
        }
    }
}

} // namespace
