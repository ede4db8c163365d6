// SPDX-License-Identifier: Apache-2.0
#include "client/command/Progress.h"

#include <gmock/gmock.h>
#include <pty.h>
#include <unistd.h>

#include <cstdio>

namespace {

using lectern::Progress;
using testing::EndsWith;
using testing::StartsWith;

// Makes standard error a terminal during its lifetime.
class Terminal {
public:
    Terminal() : mErrors(dup(STDERR_FILENO)) {
        int slave = -1;
        EXPECT_EQ(openpty(&mMaster, &slave, nullptr, nullptr, nullptr), 0);
        dup2(slave, STDERR_FILENO);
        close(slave);
    }
    ~Terminal() {
        dup2(mErrors, STDERR_FILENO);
        close(mErrors);
        close(mMaster);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    // Waits until the output ends with this text; returns all output.
    std::string waitFor(const std::string& end) {
        char bytes[256];
        while (mShown.size() < end.size() || mShown.substr(mShown.size() - end.size()) != end) {
            const ssize_t count = read(mMaster, bytes, sizeof bytes);
            if (count <= 0) {
                break;
            }
            mShown.append(bytes, static_cast<size_t>(count));
        }
        return mShown;
    }

private:
    int mErrors;
    int mMaster = -1;
    std::string mShown;
};

TEST(Progress, CountsTheSecondsOnATerminalAndGoesAway) {
    Terminal terminal;
    {
        const Progress progress("opening a.docx");
        EXPECT_THAT(terminal.waitFor(" s"), StartsWith("\rlectern: opening a.docx ... 0 s"));
    }
    EXPECT_THAT(terminal.waitFor("\033[K"), EndsWith(" s\r\033[K"));
}

TEST(Progress, SaysNothingWhileItIsQuick) {
    Terminal terminal;
    { const Progress progress("opening a.docx"); }
    std::fputs("next", stderr);
    EXPECT_EQ(terminal.waitFor("next"), "next");
}

} // namespace
