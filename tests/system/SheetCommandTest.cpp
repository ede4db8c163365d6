// SPDX-License-Identifier: Apache-2.0
// Operations on a sheet over the bus, compared with what an independent reader
// finds in the same file.
#include "tests/system/support/Python.h"
#include "tests/system/support/ServiceFixture.h"
#include "tests/system/support/SheetScreen.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <numeric>

namespace {

using Lines = std::vector<std::string>;

class SheetCommandTest : public ServiceTest {
protected:
    void open(const std::string& file, int width = 480, int height = 800) {
        path = file;
        screen = std::make_unique<SheetScreen>(*client, *queue, path, width, height);
        ASSERT_EQ(screen->document().openResult(), 0);
    }
    void TearDown() override {
        screen.reset();
        ServiceTest::TearDown();
    }
    std::string ledger(int rows) const {
        return generated("ledger" + std::to_string(rows) + ".xlsx", "make_xlsx.py",
                         {"long", std::to_string(rows), "OUT", "zebra", "9"});
    }
    // The text of the visible column with this index.
    std::string copiedColumn(size_t column) {
        screen->tapColumn(screen->columns().at(column));
        return screen->copy(folder.path() + "/copied.txt");
    }
    // The fill colours of the cells along a row or a column of pixels, without
    // repetitions.
    std::vector<uint32_t> coloursAlong(bool across) const {
        const SheetScreen::Area cells = screen->cells();
        std::vector<uint32_t> colours;
        for (int i = across ? cells.left : cells.top; i < (across ? screen->width() : screen->height() - 1);
             ++i) {
            // Below the marks of comments, in the first row or column.
            const uint32_t pixel = across ? screen->at(i, cells.top + 9) : screen->at(cells.left + 2, i);
            if (colours.empty() || colours.back() != pixel) {
                colours.push_back(pixel);
            }
        }
        return colours;
    }
    // The fill colours of the first row's or column's visible cells according
    // to the reader, at most `count`.
    std::vector<uint32_t> readColours(bool across, size_t count, const Lines& alsoHidden = {},
                                      bool all = false) {
        Lines hidden = all ? Lines() : readWorkbook({across ? "columns" : "rows", path, "Sheet"});
        hidden.insert(hidden.end(), alsoHidden.begin(), alsoHidden.end());
        std::vector<uint32_t> colours;
        for (const std::string& line : readWorkbook({"colours", path, "Sheet"})) {
            int column = 0, row = 0;
            unsigned int colour = 0;
            std::sscanf(line.c_str(), "%d %d %x", &column, &row, &colour); // NOLINT(cert-err34-c): our reader
            const std::string track =
                across ? std::string(1, static_cast<char>('A' + column)) : std::to_string(row + 1);
            const bool first = across ? row == 0 && column < 26 : column == 0;
            if (first && std::count(hidden.begin(), hidden.end(), track) == 0 && colours.size() < count) {
                colours.push_back(0xFF000000 | colour);
            }
        }
        return colours;
    }
    void expectShown(bool across, const Lines& alsoHidden = {}, bool all = false) {
        screen->document().call("/common", "clearSelection");
        const std::vector<uint32_t> seen = coloursAlong(across);
        EXPECT_GE(seen.size(), 6U);
        EXPECT_EQ(seen, readColours(across, seen.size(), alsoHidden, all));
    }
    int resultCount(const std::string& text) {
        return std::stoi(jsonMember(
            screen->document().call("/common", "Search", ",\"search\":\"" + text + "\""), "resultcount"));
    }

    std::string path;
    std::unique_ptr<SheetScreen> screen;
};

TEST_F(SheetCommandTest, ListsTheSheetsAndGoesToThem) {
    open(sample("tour.xlsx"));
    const Lines titles = readWorkbook({"sheets", path});
    ASSERT_EQ(titles.size(), 5U);
    for (size_t current = titles.size(); current-- > 0;) {
        EXPECT_EQ(screen->call("jumpToSheet", ",\"sheet\":" + std::to_string(current)),
                  "{ \"cursheet\": " + std::to_string(current) + " }");
        std::string expected;
        for (size_t i = 0; i < titles.size(); ++i) {
            expected += (i == 0 ? "{\"list\": [" : ",") + std::string("{\"data\":\"") + titles[i] +
                        "\", \"listitem\":\"" + std::to_string(i + 1) + "\", \"status\":\"" +
                        (i == current ? "images/check.png" : "") + "\"}";
        }
        EXPECT_EQ(screen->call("getSheetList"), expected + "]}");
    }
}

TEST_F(SheetCommandTest, AWorkbookOfOneSheetListsItAsShown) {
    open(ledger(300));
    EXPECT_EQ(screen->call("getSheetList"),
              R"({"list": [{"data":"Ledger", "listitem":"1", "status":"images/check.png"}]})");
}

TEST_F(SheetCommandTest, CountsTheColumnsUpToTheLastUsedOne) {
    open(generated("labelled.xlsx", "make_xlsx.py", {"labelled", "OUT"}));
    EXPECT_EQ(screen->call("getColumnCount"), R"({ "columncnt": 225 })");
    open(sample("tour.xlsx"));
    EXPECT_EQ(screen->call("getColumnCount"), R"({ "columncnt": 21 })") << "the least that is laid out";
}

TEST_F(SheetCommandTest, HiddenColumnsAndRowsAreLeftOutHiddenAndShown) {
    open(generated("labelled.xlsx", "make_xlsx.py", {"labelled", "OUT"}), 420, 600);
    screen->zoom(1.0);
    screen->scrollTo(0, 0);
    expectShown(true);
    expectShown(false);

    EXPECT_EQ(screen->tapColumn(screen->columns().at(2)).count(4), 1U); // C
    EXPECT_EQ(screen->call("hideSelection"), R"({ "returnValue": true })");
    expectShown(true, {"C"});
    EXPECT_EQ(screen->call("unhideSelection"), R"({ "returnValue": true })");
    expectShown(true);

    EXPECT_EQ(screen->tapRow(screen->rows().at(1)).count(5), 1U); // 2
    screen->call("hideSelection");
    expectShown(false, {"2"});
    screen->call("unhideSelection");
    expectShown(false);

    EXPECT_EQ(screen->call("unhideAll"), R"({ "returnValue": true })");
    expectShown(true, {}, true);
    expectShown(false, {}, true);
}

TEST_F(SheetCommandTest, SortsWholeRowsByTheSelectedColumn) {
    constexpr int ROWS = 200;
    open(ledger(ROWS));
    // The rows sorted by their numbers and by their words, according to the reader.
    const Lines numbers = readWorkbook({"column", path, "Ledger", "A"});
    const Lines words = readWorkbook({"column", path, "Ledger", "B"});
    ASSERT_EQ(numbers.size(), ROWS + 1U);
    std::map<int, std::string> wordsOf;
    for (size_t i = 1; i < numbers.size(); ++i) {
        wordsOf[std::stoi(numbers[i])] = words[i];
    }
    const auto column = [&](bool ascending, bool ofWords) {
        Lines lines{ofWords ? "Words" : "Number"};
        for (int i = 1; i <= ROWS; ++i) {
            const int number = ascending ? i : ROWS + 1 - i;
            lines.push_back(ofWords ? wordsOf.at(number) : std::to_string(number));
        }
        return lines;
    };
    EXPECT_EQ(linesOf(copiedColumn(0)), numbers);

    screen->tapColumn(screen->columns().at(0));
    EXPECT_EQ(screen->call("sortAscending"), R"({ "column": 0 })");
    EXPECT_EQ(linesOf(copiedColumn(0)), column(true, false));
    EXPECT_EQ(linesOf(copiedColumn(1)), column(true, true));
    screen->tapColumn(screen->columns().at(0));
    EXPECT_EQ(screen->call("sortDescending"), R"({ "column": 0 })");
    EXPECT_EQ(linesOf(copiedColumn(0)), column(false, false));
    EXPECT_EQ(linesOf(copiedColumn(1)), column(false, true));

    screen->tapColumn(screen->columns().at(1));
    EXPECT_EQ(screen->call("sortAscending"), R"({ "column": 1 })");
    Lines sorted(words.begin() + 1, words.end());
    std::sort(sorted.begin(), sorted.end());
    sorted.insert(sorted.begin(), "Words");
    EXPECT_EQ(linesOf(copiedColumn(1)), sorted);
}

TEST_F(SheetCommandTest, ASortedColumnStaysSelected) {
    open(ledger(200));
    const SheetScreen::Header column = screen->columns().at(1);
    screen->tapColumn(column);
    screen->call("sortAscending");
    const int inside = column.end - 3;
    EXPECT_EQ(screen->at(inside, screen->cells().top + 3), 0xFFFFF568);
    EXPECT_EQ(screen->at(column.begin - 3, screen->cells().top + 3), 0xFFFFFFFF);
    const Lines copied = linesOf(screen->copy(folder.path() + "/copied.txt"));
    EXPECT_EQ(copied.size(), 201U);
    EXPECT_TRUE(std::is_sorted(copied.begin() + 1, copied.end()));
}

TEST_F(SheetCommandTest, CopiesAreCutAtTheCapacity) {
    open(ledger(400));
    const Lines words = readWorkbook({"column", path, "Ledger", "B"});
    std::string whole =
        std::accumulate(words.begin() + 1, words.end(), words.front(),
                        [](const std::string& all, const std::string& line) { return all + "\n" + line; });
    ASSERT_GT(whole.size(), 4095U); // letters of one byte
    whole.resize(4095);
    EXPECT_EQ(copiedColumn(1), whole);
}

TEST_F(SheetCommandTest, CopyingEndsTheSelectionAndReplacesTheFile) {
    open(generated("few.xlsx", "make_xlsx.py", {"plain", "OUT", "abcd", "x,y"}));
    const std::vector<uint32_t> before = screen->pixels();
    const std::string file = folder.path() + "/copied.txt";
    std::filesystem::copy_file(sample("tour.txt"), file);
    screen->tapRow(screen->rows().at(0));
    EXPECT_EQ(screen->copy(file), "abcd");
    EXPECT_EQ(screen->pixels(), before);
    EXPECT_EQ(service->errors().find("Failure writing"), std::string::npos);
    screen->tapRow(screen->rows().at(1));
    EXPECT_EQ(screen->copy(file), "x\ty");
    EXPECT_NE(service->errors().find("Failure writing\n"), std::string::npos);
}

TEST_F(SheetCommandTest, CountsTheHitsThatAreNotHidden) {
    open(sample("tour.xlsx"));
    screen->show(1);
    for (const char* word : {"b0", "B", "berth", "nowhere"}) {
        Lines cells = readWorkbook({"hits", path, "Moorings", word});
        std::erase_if(cells,
                      [](const std::string& cell) { return cell == "A5" || cell == "A6"; }); // hidden rows
        EXPECT_EQ(resultCount(word), static_cast<int>(cells.size())) << word;
    }
    open(ledger(400));
    EXPECT_EQ(resultCount("zebra"), static_cast<int>(readWorkbook({"hits", path, "Ledger", "zebra"}).size()));
    EXPECT_EQ(resultCount("boat"), static_cast<int>(readWorkbook({"hits", path, "Ledger", "boat"}).size()));
}

TEST_F(SheetCommandTest, ARightToLeftSheetReadsFromTheLeft) {
    open(sample("tour.xlsx"));
    screen->show(3);
    const Lines titles = readWorkbook({"sheets", path});
    EXPECT_EQ(linesOf(copiedColumn(0)), readWorkbook({"column", path, titles.at(3), "A"}));
    const SheetScreen::Header words = screen->columns().at(0);
    const SheetScreen::Header empty = screen->columns().at(2);
    const auto inkIn = [&](const SheetScreen::Header& column) {
        int ink = 0;
        for (int y = screen->cells().top; y < screen->rows().at(3).end; ++y) {
            for (int x = column.begin + 1; x < column.end; ++x) {
                ink += (screen->at(x, y) & 0xFF) < 0x80 ? 1 : 0;
            }
        }
        return ink;
    };
    EXPECT_GT(inkIn(words), 100);
    EXPECT_EQ(inkIn(empty), 0);
}

TEST_F(SheetCommandTest, TellsItsProperties) {
    open(sample("tour.xlsx"));
    const std::string told = screen->document().call("/common", "getDocProperties");
    const Lines properties = readWorkbook({"properties", path});
    ASSERT_EQ(properties.size(), 3U);
    EXPECT_EQ(jsonMember(told, "name"), properties[0]);
    EXPECT_EQ(jsonMember(told, "author"), properties[1]);
    EXPECT_EQ(jsonMember(told, "description"), properties[2]);
    EXPECT_NE(jsonMember(told, "createdate").find("Jan 5, 2026"), std::string::npos) << told;
}

TEST_F(SheetCommandTest, NoCommandWritesToTheUsersFile) {
    const std::string file = folder.path() + "/kept.xlsx";
    std::filesystem::copy_file(sample("tour.xlsx"), file);
    const std::string bytes = readFile(file);
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(stat(file.c_str(), &before), 0);
    const auto filesBeside = [&] {
        return std::distance(std::filesystem::directory_iterator(folder.path()),
                             std::filesystem::directory_iterator());
    };
    open(file);
    const auto files = filesBeside();
    screen->show(1);
    screen->tapColumn(screen->columns().at(1));
    EXPECT_EQ(screen->call("sortDescending"), R"({ "column": 1 })");
    screen->call("hideSelection");
    screen->call("resizeMode", R"(,"mode":"on")");
    const SheetScreen::Header column = screen->columns().at(1);
    EXPECT_EQ(screen->stroke(column.begin, 3, column.begin + 40, 3).count(6), 1U);
    screen->call("unhideAll");
    EXPECT_EQ(filesBeside(), files) << "a lock file, or one half written";
    screen.reset();
    ASSERT_EQ(stat(file.c_str(), &after), 0);
    EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(readFile(file), bytes);
}

TEST_F(SheetCommandTest, AWorkbookThatIsReadOnlyIsChangedOnTheScreenOnly) {
    const std::string file = folder.path() + "/readonly.xlsx";
    std::filesystem::copy_file(ledger(200), file);
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    open(file);
    screen->tapColumn(screen->columns().at(0));
    EXPECT_EQ(screen->call("sortAscending"), R"({ "column": 0 })");
    EXPECT_EQ(linesOf(copiedColumn(0)).at(1), "1");
}

TEST_F(SheetCommandTest, AClosedWorkbookOpensAgainOnItsSheetAndAtItsPlace) {
    open(sample("tour.xlsx"));
    screen->show(1);
    screen->zoom(1.5);
    screen->scrollTo(33, 44);
    const std::vector<uint32_t> shown = screen->pixels();
    TestDocument::Options options;
    options.dataStore = static_cast<unsigned int>(screen->document().store());
    screen->document().destroy();
    TestDocument again(*client, *queue, path, 480, 800, options);
    ASSERT_EQ(again.openResult(), 0);
    ASSERT_EQ(again.paint(), 0);
    EXPECT_TRUE(std::equal(shown.begin(), shown.end(), again.frame()));
    EXPECT_EQ(again.scrollX(), 33);
    EXPECT_EQ(again.scrollY(), 44);
    EXPECT_DOUBLE_EQ(again.scale(), 1.5);
}

} // namespace
