// SPDX-License-Identifier: Apache-2.0
#include "client/command/play/Script.h"

#include "client/command/play/Instructions.h"

#include <gmock/gmock.h>

namespace {

using namespace lectern;
using namespace lectern::play;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<int> dueTimes(const Script& script) {
    std::vector<int> times;
    for (const Step& step : script.steps) {
        times.push_back(static_cast<int>(step.due.count()));
    }
    return times;
}

std::string errorOf(const std::string& text) {
    const auto script = parseScript("a.play", text);
    return script ? "" : script.error().text;
}

TEST(Script, TakesOneInstructionALine) {
    const auto script = parseScript("a.play", "# a comment\n\n  down 240 -7\r\nup 1 2\n\tframe\n");
    ASSERT_TRUE(script);
    ASSERT_EQ(script->steps.size(), 3U);
    EXPECT_EQ(script->name, "a.play");
    EXPECT_EQ(std::get<PenDown>(script->steps[0].action).at, (Point{240, -7}));
    EXPECT_EQ(script->steps[0].line, 3);
    EXPECT_EQ(std::get<PenUp>(script->steps[1].action).at, (Point{1, 2}));
    EXPECT_EQ(std::get<TakeFrame>(script->steps[2].action).name, "");
    EXPECT_EQ(script->steps[2].line, 5);
}

TEST(Script, TimesAddUpFromTheStart) {
    const auto script =
        parseScript("a", "frame\nwait 100\nframe\nwait 50\npinch 2 400\nframe\nat 1000\nframe");
    ASSERT_TRUE(script);
    EXPECT_THAT(dueTimes(*script), ElementsAre(0, 100, 100, 150, 150, 550, 1000, 1000));
}

TEST(Script, TimeDoesNotGoBack) {
    EXPECT_EQ(errorOf("wait 500\nframe\nat 499"),
              "a.play:3: this time has passed: the script is already at 500 ms");
    EXPECT_EQ(errorOf("wait 500\nat 500"), "");
    EXPECT_THAT(errorOf("wait 86400000\nwait 1"), HasSubstr("a.play:2: a script can last at most 24 hours"));
}

TEST(Script, ReadsEveryInstruction) {
    const auto script =
        parseScript("a", "move 1 2\nclick 3 4\ndoubleclick 5 6\nflick -7 800\npinch 0.5\nkey 97 2\nsheet 3\n"
                         "slide 4\nsearch  two  words \nnext\nprevious\nclose\nwide on\nwide off\n"
                         "frame the_end-1\nevery 40\nevery off\n");
    ASSERT_TRUE(script) << script.error().text;
    const auto at = [&script](size_t index) -> const Action& { return script->steps[index].action; };
    EXPECT_EQ(std::get<PenMove>(at(0)).at, (Point{1, 2}));
    EXPECT_EQ(std::get<Click>(at(1)).at, (Point{3, 4}));
    EXPECT_EQ(std::get<DoubleClick>(at(2)).at, (Point{5, 6}));
    EXPECT_EQ(std::get<Flick>(at(3)).velocity, (Point{-7, 800}));
    EXPECT_EQ(std::get<Pinch>(at(4)).factor, 0.5);
    EXPECT_EQ(std::get<Pinch>(at(4)).duration.count(), 0);
    EXPECT_EQ(std::get<Key>(at(5)).key, 97);
    EXPECT_EQ(std::get<Key>(at(5)).modifiers, 2);
    EXPECT_EQ(std::get<GoToSheet>(at(6)).number, 3);
    EXPECT_EQ(std::get<GoToSlide>(at(7)).number, 4);
    EXPECT_EQ(std::get<Search>(at(8)).text, "two  words");
    EXPECT_TRUE(std::holds_alternative<NextHit>(at(9)));
    EXPECT_TRUE(std::holds_alternative<PreviousHit>(at(10)));
    EXPECT_TRUE(std::holds_alternative<EndSearch>(at(11)));
    EXPECT_TRUE(std::get<Wide>(at(12)).on);
    EXPECT_FALSE(std::get<Wide>(at(13)).on);
    EXPECT_EQ(std::get<TakeFrame>(at(14)).name, "the_end-1");
    EXPECT_EQ(std::get<TakeFrames>(at(15)).period.count(), 40);
    EXPECT_EQ(std::get<TakeFrames>(at(16)).period.count(), 0);
}

TEST(Script, ErrorsNameTheLineAndTheForm) {
    EXPECT_EQ(errorOf("frame\npinsh 2"),
              "a.play:2: 'pinsh' is not an instruction; lectern(1) lists them all");
    EXPECT_EQ(errorOf("down 3"), "a.play:1: 'down 3' is wrong; the form is 'down X Y'");
    for (const char* line : {"down x 1", "down 1 2 3", "wait", "wait -1", "wait 1.5", "pinch 0", "pinch 2 x",
                             "sheet 0", "slide one", "search", "next 2", "wide", "wide yes", "frame a/b",
                             "frame a b", "every 0", "key", "key a"}) {
        EXPECT_THAT(errorOf(line), HasSubstr("is wrong; the form is")) << line;
    }
}

TEST(Script, EveryFormIsNamedOnce) {
    EXPECT_EQ(instructionForms().size(), 22U);
    EXPECT_THAT(instructionForms(), testing::Contains("pinch FACTOR [MILLISECONDS]"));
}

TEST(Script, ThatCannotBeReadIsAnError) {
    const auto missing = readScript("/nowhere/a.play");
    ASSERT_FALSE(missing);
    EXPECT_THAT(missing.error().text, HasSubstr("'/nowhere/a.play': No such file"));
    EXPECT_FALSE(readScript("/"));
    const auto empty = readScript("/dev/null");
    ASSERT_TRUE(empty);
    EXPECT_TRUE(empty->steps.empty());
}

} // namespace
