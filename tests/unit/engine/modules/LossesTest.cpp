// SPDX-License-Identifier: Apache-2.0
#include "engine/modules/Losses.h"

#include "engine/modules/BusyTime.h"
#include "modules/ModuleResults.h"

#include <gtest/gtest.h>

namespace lectern::engine {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

void oneCall() {}
void anotherCall() {}

constexpr TimePoint START{std::chrono::hours(5)};

TEST(Losses, AreNoneAtFirst) {
    const Losses losses;
    EXPECT_EQ(losses.code(), MODULE_OK);
}

TEST(Losses, ByTheSameCallWithinAMinuteEndTheDocument) {
    Losses losses;
    losses.note(oneCall, MODULE_ENGINE_LOST, START);
    EXPECT_EQ(losses.code(), MODULE_OK);
    losses.note(oneCall, MODULE_TIMED_OUT, START + seconds(59));
    EXPECT_EQ(losses.code(), MODULE_TIMED_OUT) << "the code of the later one";
}

TEST(Losses, ByTheSameCallAfterAMinuteDoNot) {
    Losses losses;
    losses.note(oneCall, MODULE_ENGINE_LOST, START);
    losses.note(oneCall, MODULE_ENGINE_LOST, START + seconds(60));
    EXPECT_EQ(losses.code(), MODULE_OK);
    losses.note(oneCall, MODULE_ENGINE_LOST, START + seconds(61));
    EXPECT_EQ(losses.code(), MODULE_ENGINE_LOST) << "the minute starts anew with each";
}

TEST(Losses, ByDifferentCallsDoNot) {
    Losses losses;
    losses.note(oneCall, MODULE_ENGINE_LOST, START);
    losses.note(anotherCall, MODULE_ENGINE_LOST, START);
    EXPECT_EQ(losses.code(), MODULE_OK);
}

TEST(Losses, OfACallThatIsAnsweredInBetweenDoNot) {
    Losses losses;
    losses.note(oneCall, MODULE_ENGINE_LOST, START);
    losses.noteAnswer(anotherCall);
    losses.noteAnswer(oneCall);
    losses.note(oneCall, MODULE_ENGINE_LOST, START + seconds(1));
    EXPECT_EQ(losses.code(), MODULE_OK);
    losses.noteAnswer(anotherCall);
    losses.note(oneCall, MODULE_ENGINE_LOST, START + seconds(2));
    EXPECT_EQ(losses.code(), MODULE_ENGINE_LOST);
}

TEST(Losses, KeepTheirFirstCode) {
    Losses losses;
    losses.giveUp(MODULE_CHANGED);
    losses.giveUp(MODULE_ENGINE_LOST);
    EXPECT_EQ(losses.code(), MODULE_CHANGED);
}

TEST(BusyTime, IsTheSumOfTheCalls) {
    BusyTime busy;
    EXPECT_EQ(busy.until(START), Clock::duration::zero());
    busy.add(START, START + milliseconds(200));
    busy.add(START + milliseconds(300), START + milliseconds(400));
    busy.add(START + seconds(30), START + seconds(40));
    EXPECT_EQ(busy.until(START + seconds(40)), milliseconds(10'300));
}

TEST(BusyTime, ForgetsCallsThatEndedTwoMinutesAgo) {
    BusyTime busy;
    busy.add(START, START + seconds(20));
    busy.add(START + seconds(30), START + seconds(31));
    EXPECT_EQ(busy.until(START + seconds(140)), seconds(21));
    EXPECT_EQ(busy.until(START + seconds(141)), seconds(1));
    EXPECT_EQ(busy.until(START + seconds(152)), seconds(0));
}

TEST(BusyTime, OfADocumentThatNeverRestsReachesTheWindow) {
    BusyTime busy;
    TimePoint now = START;
    for (int i = 0; i < 100'000; i++) {
        busy.add(now, now + milliseconds(5));
        now += milliseconds(5);
    }
    EXPECT_GE(busy.until(now), BusyTime::WINDOW);
    EXPECT_LE(busy.until(now), BusyTime::WINDOW + seconds(1));
}

} // namespace
} // namespace lectern::engine
