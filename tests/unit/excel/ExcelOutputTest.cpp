// SPDX-License-Identifier: Apache-2.0
// Texts on standard output without a line feed: they are written at once,
// because a signal may end the process next.
#include "tests/unit/excel/ExcelTest.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <functional>

namespace {

// Text that an operation has written when it returns, without the rest in the
// stream's buffer.
std::string writtenBy(const std::function<void()>& operation) {
    std::fflush(stdout);
    const int before = dup(STDOUT_FILENO);
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    dup2(ends[1], STDOUT_FILENO);
    operation();
    char text[256];
    const ssize_t length = read(ends[0], text, sizeof text);
    std::fflush(stdout);
    dup2(before, STDOUT_FILENO);
    close(before);
    close(ends[0]);
    close(ends[1]);
    return length > 0 ? std::string(text, static_cast<size_t>(length)) : "";
}

class ExcelOutputTest : public ExcelTest {};

TEST_F(ExcelOutputTest, TellsOfANewStateRecordAtOnce) {
    EXPECT_EQ(writtenBy([] { makeView(); }), "Creating shmid!");
}

TEST_F(ExcelOutputTest, TellsOfARecordInPlaceOfAnUnusableOne) {
    for (const unsigned int id : {1U, 99U, 4000000U, makeClientSegment(27)}) {
        EXPECT_EQ(writtenBy([id] { makeView(320, 480, id); }), "Creating shmid!");
    }
}

TEST_F(ExcelOutputTest, TellsOfACopyThatFailedAtOnce) {
    const auto view = openView();
    EXPECT_EQ(writtenBy([&] { view->copySelection("/nonexistent/copy"); }),
              "Excel::copySelection: fileptr is null");
}

} // namespace
