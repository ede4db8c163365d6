// SPDX-License-Identifier: Apache-2.0
// The documents opened last, and the places where they were left.
#include "client/viewer/History.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

using lectern::viewer::History;
using lectern::viewer::Place;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string newFolder() {
    std::string pattern = testing::TempDir() + "lectern-history-XXXXXX";
    return mkdtemp(pattern.data());
}

class HistoryFile : public testing::Test {
protected:
    ~HistoryFile() override { std::filesystem::remove_all(mFolder); }

    std::string path() const { return mFolder + "/state/lectern/history"; }
    std::vector<std::string> uris() const {
        std::vector<std::string> all;
        for (const History::Entry& entry : history.entries()) {
            all.push_back(entry.uri);
        }
        return all;
    }
    void write(const std::string& text) const {
        std::filesystem::create_directories(mFolder + "/state/lectern");
        std::ofstream(path()) << text;
    }

    std::string mFolder = newFolder();
    History history{path()};
};

TEST_F(HistoryFile, IsEmptyBeforeTheFirstDocument) {
    EXPECT_THAT(history.entries(), IsEmpty());
    EXPECT_EQ(history.placeOf("file:///a.odt"), Place{});
}

TEST_F(HistoryFile, ListsTheLatestDocumentFirst) {
    history.add("file:///old.odt", 100);
    history.add("file:///new.odt", 300);
    history.add("file:///middle.odt", 200);
    EXPECT_THAT(uris(), ElementsAre("file:///new.odt", "file:///middle.odt", "file:///old.odt"));
    history.add("file:///old.odt", 400);
    EXPECT_THAT(uris(), ElementsAre("file:///old.odt", "file:///new.odt", "file:///middle.odt"));
}

TEST_F(HistoryFile, KeepsAPlaceForTheNextProcess) {
    const Place place{.part = 3, .zoom = 1.25, .x = 0.1, .y = 0.75};
    history.add("file:///a.odt", 100);
    history.setPlace("file:///a.odt", place);
    EXPECT_EQ(History(path()).placeOf("file:///a.odt"), place);
}

TEST_F(HistoryFile, KeepsThePlaceWhenADocumentIsOpenedAgain) {
    history.add("file:///a.odt", 100);
    history.setPlace("file:///a.odt", {.part = 2, .zoom = 2, .x = 0, .y = 0.5});
    history.add("file:///a.odt", 200);
    EXPECT_EQ(history.placeOf("file:///a.odt").part, 2);
}

TEST_F(HistoryFile, TakesNamesOfAllKinds) {
    const std::string uri = "file:///R%C3%A9sum%C3%A9%20%5B2%5D%20=%20%23.odt";
    history.add(uri, 100);
    history.setPlace(uri, {.part = 1, .zoom = 0, .x = 0, .y = 0});
    EXPECT_THAT(uris(), ElementsAre(uri));
    EXPECT_EQ(history.placeOf(uri).part, 1);
}

TEST_F(HistoryFile, ForgetsTheOldestDocument) {
    for (size_t count = 0; count <= History::LIMIT; ++count) {
        history.add("file:///" + std::to_string(count), static_cast<gint64>(count));
    }
    EXPECT_THAT(uris(), SizeIs(History::LIMIT));
    EXPECT_EQ(uris().front(), "file:///" + std::to_string(History::LIMIT));
    EXPECT_EQ(uris().back(), "file:///1");
}

TEST_F(HistoryFile, KeepsNoPlaceOfAForgottenDocument) {
    history.setPlace("file:///a.odt", {.part = 3, .zoom = 1, .x = 0, .y = 0});
    EXPECT_THAT(history.entries(), IsEmpty());
    EXPECT_EQ(history.placeOf("file:///a.odt"), Place{});
}

TEST_F(HistoryFile, IsEmptyAfterItIsCleared) {
    history.add("file:///a.odt", 100);
    history.clear();
    EXPECT_THAT(history.entries(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(path()));
}

TEST_F(HistoryFile, IsForItsOwnerAlone) {
    history.add("file:///a.odt", 100);
    struct stat status {};
    ASSERT_EQ(stat(path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(HistoryFile, LeavesNoOtherFileBehind) {
    history.add("file:///a.odt", 100);
    history.add("file:///b.odt", 200);
    const std::filesystem::directory_iterator files(mFolder + "/state/lectern");
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(HistoryFile, StartsAnewAfterADamagedFile) {
    write("no group = first\n[[[\n\xff\xfe");
    EXPECT_THAT(history.entries(), IsEmpty());
    history.add("file:///a.odt", 100);
    EXPECT_THAT(uris(), ElementsAre("file:///a.odt"));
}

TEST_F(HistoryFile, BringsWrongPlacesIntoTheDocument) {
    write("[file:///a.odt]\nopened=1\npart=-4\nzoom=-2\nx=nan\ny=1e99\n");
    EXPECT_EQ(history.placeOf("file:///a.odt"), (Place{.part = 0, .zoom = 0, .x = 0, .y = 1e6}));
    write("[file:///a.odt]\nopened=soon\npart=two\nzoom=1000\ny=-inf\n");
    EXPECT_EQ(history.placeOf("file:///a.odt"), (Place{.part = 0, .zoom = 8, .x = 0, .y = 0}));
}

TEST_F(HistoryFile, DoesWithoutAFolderThatItMayMake) {
    write("");
    std::filesystem::remove_all(mFolder + "/state");
    std::ofstream(mFolder + "/state") << "a file where the folder should be";
    history.add("file:///a.odt", 100);
    EXPECT_THAT(history.entries(), IsEmpty());
}

} // namespace
