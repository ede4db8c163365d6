// SPDX-License-Identifier: Apache-2.0
// Scrolling a sheet of 100,000 rows from end to end.
#include "tests/system/support/Python.h"
#include "tests/system/support/ServiceFixture.h"
#include "tests/system/support/SheetScreen.h"

#include <algorithm>

namespace {

constexpr int ROWS = 100'000;

class SheetLongTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        screen = std::make_unique<SheetScreen>(
            *client, *queue,
            generated("long.xlsx", "make_xlsx.py", {"long", std::to_string(ROWS), "OUT", "zebra", "100"}));
        ASSERT_EQ(screen->document().openResult(), 0);
    }
    void TearDown() override {
        screen.reset();
        ServiceTest::TearDown();
    }
    void flingDown(int speed) {
        screen->document().call("/events", "handleFlick",
                                ",\"xCoord\":0,\"yCoord\":" + std::to_string(-speed));
        int last = screen->document().scrollY();
        do { // a moving view requests the next paint after each paint
            screen->notices();
            screen->document().paint();
            ASSERT_GE(screen->document().scrollY(), last);
            last = screen->document().scrollY();
        } while (screen->notices().count(0) != 0);
    }
    // The texts of column A in the visible rows, read by selecting row after row.
    std::vector<std::string> numbersSeen() {
        std::vector<std::string> numbers;
        const std::string file = folder.path() + "/row.txt";
        for (const SheetScreen::Header& row : screen->rows()) {
            if (row.end - row.begin > 12) {
                screen->tapRow(row);
                const std::string text = screen->copy(file);
                numbers.push_back(text.substr(0, text.find('\t')));
            }
        }
        return numbers;
    }

    std::unique_ptr<SheetScreen> screen;
};

TEST_F(SheetLongTest, IsFlungToItsEndSearchedAndSorted) {
    // A glide takes seconds, and a document of a million pixels needs many glides.
    const int before = screen->document().scrollY();
    flingDown(4000);
    EXPECT_GT(screen->document().scrollY(), before + 1000);
    screen->scrollTo(0, 1 << 30);
    const int end = screen->document().scrollY();
    flingDown(4000);
    EXPECT_EQ(screen->document().scrollY(), end) << "the end is the end";
    const SheetScreen::Header last = screen->rows().back();
    EXPECT_GE(last.end, screen->height() - 40);

    const std::string reply = screen->document().call("/common", "Search", R"(,"search":"zebra")");
    EXPECT_EQ(reply, R"({ "resultcount": 100 })");
    screen->rest();
    int shown = -1;
    for (int step = 0; step < 100; ++step) {
        screen->document().call("/common", "nextResult");
        EXPECT_NE(screen->document().scrollY(), shown);
        shown = screen->document().scrollY();
    }
    screen->document().call("/common", "closeSearch");

    screen->scrollTo(0, 0);
    screen->tapColumn(screen->columns().at(0));
    EXPECT_EQ(screen->call("sortAscending"), R"({ "column": 0 })");
    const std::vector<std::string> first = numbersSeen();
    ASSERT_GE(first.size(), 10U);
    EXPECT_EQ(first[0], "Number");
    for (size_t i = 1; i < first.size(); ++i) {
        EXPECT_EQ(first[i], std::to_string(i));
    }
    screen->scrollTo(0, end);
    EXPECT_EQ(screen->document().scrollY(), end);
    std::vector<std::string> numbers = numbersSeen();
    ASSERT_GE(numbers.size(), 10U);
    // The last row has no line after it.
    screen->tapRow({screen->rows().back().end, screen->height()});
    const std::string text = screen->copy(folder.path() + "/row.txt");
    numbers.push_back(text.substr(0, text.find('\t')));
    EXPECT_EQ(numbers.back(), std::to_string(ROWS));
    for (size_t i = 1; i < numbers.size(); ++i) {
        EXPECT_EQ(std::stoi(numbers[i]), std::stoi(numbers[i - 1]) + 1);
    }
}

} // namespace
