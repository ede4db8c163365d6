// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/CommandFixture.h"

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <set>
#include <thread>

namespace {

using namespace lectern;
using testing::ElementsAre;
using testing::HasSubstr;

class PlayCommand : public CommandTest {
protected:
    int play(const std::string& script) {
        const std::string path = mFolder / "a.play";
        std::ofstream(path) << script;
        Interrupt interrupt;
        return runPlay({path, "/letter.docx", mFolder / "frames", 48, 80, {}, {}, {Manners::Classic}},
                       interrupt);
    }
    std::set<std::string> frames() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(mFolder / "frames")) {
            names.insert(entry.path().filename());
        }
        return names;
    }
};

TEST_F(PlayCommand, WritesNumberedFrames) {
    EXPECT_EQ(play("frame\ndown 10 70\nmove 10 40\nup 10 20\nframe dragged\n"), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(frames(), ElementsAre("0001.png", "0002-dragged.png"));
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PAINT, _PAINT, _PEN_DOWN, _PEN_MOVE, _PEN_UP, _PAINT));
}

TEST_F(PlayCommand, GivesInputInTheOrderOfTheScript) {
    EXPECT_EQ(play("up 1 1\nmove 1 1\ndown 1 1\nkey 97 1\n"), STATUS_DONE);
    EXPECT_THAT(mService.view().taken(),
                ElementsAre(_PAINT, _PEN_UP, _PEN_MOVE, _PEN_DOWN, _KEY_DOWN, _KEY_UP));
}

TEST_F(PlayCommand, CallsWhatTheBusServes) {
    mService.answer("/common Search", R"({"resultcount": 2})");
    EXPECT_EQ(play("click 1 2\ndoubleclick 3 4\nflick 0 -500\nsearch a boat\nnext\nprevious\nclose\n"),
              STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    std::vector<std::string> places;
    for (const FakeService::Call& call : mService.calls()) {
        if (call.place != "/events ping" && call.place != "/events destroy") {
            places.push_back(call.place);
        }
    }
    EXPECT_THAT(places, ElementsAre("/events create", "/events handleClick", "/events handleDoubleClick",
                                    "/events handleFlick", "/common Search", "/common nextResult",
                                    "/common previousResult", "/common closeSearch"));
    EXPECT_THAT(mService.waitForCall("/common Search"), HasSubstr("\"a boat\""));
}

TEST_F(PlayCommand, APinchIsPaintedAtEachMoveOfTheFingers) {
    EXPECT_EQ(play("pinch 2 80\n"), STATUS_DONE);
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PAINT, _PAINT, _GESTURE_START, _GESTURE_CHANGE, _PAINT,
                                                     _GESTURE_CHANGE, _PAINT, _GESTURE_END, _PAINT));
}

TEST_F(PlayCommand, KeepsTheTimesOfTheScript) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(play("wait 100\nwait 50\nframe\nat 300\n"), STATUS_DONE);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
}

TEST_F(PlayCommand, TakesFramesAgainAndAgainUntilTold) {
    EXPECT_EQ(play("every 100\nwait 350\nevery off\nwait 150\nframe last\n"), STATUS_DONE);
    // On a busy machine some frames are late and skipped, but there are never more.
    EXPECT_GE(frames().size(), 2U);
    EXPECT_LE(frames().size(), 4U);
    EXPECT_THAT(frames().rbegin()->c_str(), HasSubstr("-last.png"));
}

TEST_F(PlayCommand, RefusesAScriptBeforeItOpensTheDocument) {
    EXPECT_EQ(play("frame\nfly\n"), STATUS_MISUSE);
    EXPECT_THAT(complaints(), HasSubstr("a.play:2: 'fly' is not an instruction"));
    EXPECT_TRUE(mService.calls().empty());
}

TEST_F(PlayCommand, NamesTheLineOfWhatTheDocumentCannotDo) {
    EXPECT_EQ(play("frame\nsheet 2\n"), STATUS_MISUSE);
    EXPECT_THAT(complaints(), HasSubstr("a.play:2: 'sheet' works with spreadsheets only"));
    EXPECT_THAT(frames(), ElementsAre("0001.png"));
}

TEST_F(PlayCommand, NamesTheLineThatTheServiceRefuses) {
    mService.answer("/common nextResult", R"({"errorCode": "errDoesNotExist", "errorText": "x"})");
    EXPECT_EQ(play("\nnext\n"), STATUS_FAILED);
    EXPECT_THAT(complaints(), HasSubstr("a.play:2: the service no longer knows the document"));
}

TEST_F(PlayCommand, NeedsAFolderItCanWriteTo) {
    std::ofstream(mFolder / "frames") << "a file\n";
    EXPECT_EQ(play("frame\n"), STATUS_FAILED);
    EXPECT_THAT(complaints(), HasSubstr("cannot write"));
    EXPECT_TRUE(mService.calls().empty());
}

TEST_F(PlayCommand, IsCalledOffByASignal) {
    std::thread user([this] {
        mService.waitForCall("/common nextResult");
        kill(getpid(), SIGTERM);
    });
    EXPECT_EQ(play("next\nwait 600000\n"), STATUS_FAILED);
    user.join();
    EXPECT_EQ(complaints(), "");
}

} // namespace
