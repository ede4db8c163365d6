// SPDX-License-Identifier: Apache-2.0
#include "tests/system/command/ServedCommandFixture.h"
#include "tests/system/support/Marks.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

class PlayTest : public CommandTest {
protected:
    std::string frames() const { return folder.path() + "/frames"; }
    void play(const std::string& script, const std::string& file) {
        EXPECT_EQ(done({"play", "--classic", script, file, "-o", frames()}), "");
    }
    std::string scriptOf(const std::string& text) const {
        std::ofstream(folder.path() + "/a.play") << text;
        return folder.path() + "/a.play";
    }
    // The frame with this name, with any number.
    Picture frame(const std::string& name) const {
        for (const auto& entry : std::filesystem::directory_iterator(frames())) {
            const std::string file = entry.path().filename();
            if (file.size() > 4 && file.substr(4) == "-" + name + ".png") {
                return readPicture(entry.path());
            }
        }
        ADD_FAILURE() << "no frame " << name;
        return {};
    }
};

TEST_F(PlayTest, TheSampleShowsWhatItsLinesSay) {
    play(sample("tour.play"), sample("tour.docx"));
    TestDocument document(*client, *queue, sample("tour.docx"), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    EXPECT_EQ(frame("start"), seenBy(document));
    document.drag(400);
    EXPECT_EQ(frame("dragged"), seenBy(document));
    EXPECT_NE(frame("dragged"), frame("start"));
    EXPECT_NE(frame("rest"), frame("dragged")) << "the flick";
    EXPECT_NE(frame("zoomed"), frame("rest"));
    const Picture hit = frame("a-hit");
    const Picture other = frame("next-hit");
    EXPECT_TRUE(std::any_of(hit.pixels.begin(), hit.pixels.end(), isCurrentHit));
    EXPECT_TRUE(std::any_of(other.pixels.begin(), other.pixels.end(), isCurrentHit));
    EXPECT_NE(hit, other);
    const Picture end = frame("end");
    EXPECT_FALSE(std::any_of(end.pixels.begin(), end.pixels.end(), isCurrentHit));
}

TEST_F(PlayTest, AGlideIsSeenInFramesThatFollowEachOther) {
    play(scriptOf("every 300\nflick 0 -600\nwait 2000\n"), longDocument(3));
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(frames())) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    ASSERT_GE(files.size(), 3U);
    EXPECT_NE(readPicture(files.front()), readPicture(files.back()));
}

TEST_F(PlayTest, SheetsAndSlidesAreGoneTo) {
    play(scriptOf("sheet 2\nframe two\nsheet 1\nframe one\n"), sample("tour.xlsx"));
    EXPECT_EQ(frame("two"), opened(sample("tour.xlsx"), {"--sheet", "2"}));
    EXPECT_EQ(frame("one"), opened(sample("tour.xlsx"), {}));
    play(scriptOf("slide 3\nframe three\n"), sample("tour.pptx"));
    EXPECT_EQ(frame("three"), opened(sample("tour.pptx"), {"--slide", "3"}));
}

TEST_F(PlayTest, AnErrorNamesItsLine) {
    const Outcome outcome =
        lectern({"play", scriptOf("frame\nsheet 99\n"), sample("tour.xlsx"), "-o", frames()});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, testing::HasSubstr("a.play:2: there is no sheet 99; use a number from 1 to"));
    EXPECT_TRUE(std::filesystem::exists(frames() + "/0001.png"));
}

} // namespace
