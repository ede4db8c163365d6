// SPDX-License-Identifier: Apache-2.0
// Documents that refer to other files of the user do not show them. The controls contain
// what the others refer to.
#include "tests/system/command/ServedCommandFixture.h"
#include "tests/system/support/Python.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace {

class ReferencesTest : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        python({REFERENCES_SCRIPT, folder.path()});
        for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
            const std::string kind = file.path().extension();
            if (kind == ".docx" || kind == ".doc" || kind == ".xlsx" || kind == ".pptx") {
                documents.insert(file.path());
            }
        }
    }

    // The red picture has tens of thousands of pixels; the suite's sign for a missing one
    // has some, too.
    bool showsThePicture(const std::string& document) {
        constexpr long MOST_OF_A_SIGN = 1000;
        const Picture picture = opened(document, {});
        return std::count(picture.pixels.begin(), picture.pixels.end(), 0xFF0000U) > MOST_OF_A_SIGN;
    }
    bool hasTheWord(const std::string& document) {
        return lectern({"search", document, "Saltmarsh"}).output.find("1 hit") != std::string::npos;
    }
    static bool isOwn(const std::string& document) {
        return std::filesystem::path(document).filename().string().rfind("own-", 0) == 0;
    }

    std::set<std::string> documents;
};

TEST_F(ReferencesTest, DocumentsShowWhatTheyContain) {
    EXPECT_TRUE(showsThePicture(folder.path() + "/own-picture.docx"));
    EXPECT_TRUE(hasTheWord(folder.path() + "/own-word.docx"));
    EXPECT_TRUE(hasTheWord(folder.path() + "/own-word.xlsx"));
}

TEST_F(ReferencesTest, NoPictureOfAnotherFileIsShown) {
    EXPECT_GT(documents.size(), 15U);
    for (const std::string& document : documents) {
        EXPECT_FALSE(!isOwn(document) && showsThePicture(document)) << document;
    }
}

TEST_F(ReferencesTest, NoTextOfAnotherFileIsFound) {
    for (const std::string& document : documents) {
        EXPECT_FALSE(!isOwn(document) && hasTheWord(document)) << document;
    }
}

} // namespace
