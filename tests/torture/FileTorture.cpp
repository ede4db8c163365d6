// SPDX-License-Identifier: Apache-2.0
// Files that are made to use up time and memory, and a folder of files if
// LECTERN_TORTURE_FILES names one: each is opened, scrolled to the end, zoomed, searched,
// listed and closed.
#include "tests/system/support/Python.h"
#include "tests/torture/TortureFixture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace {

using std::chrono::seconds;

class FileTorture : public TortureTest {
protected:
    void SetUp() override {
        setenv("LECTERN_ENGINE_OPEN_LIMIT_MS", amount(1, 0) == 1 ? "8000" : "20000", 1);
        setenv("LECTERN_ENGINE_CALL_LIMIT_MS", amount(1, 0) == 1 ? "5000" : "10000", 1);
        TortureTest::SetUp();
    }
    static std::vector<std::string> filesIn(const std::string& folder) {
        static const std::vector<std::string> KINDS = {".docx", ".doc",  ".txt", ".xlsx",
                                                       ".xls",  ".pptx", ".ppt"};
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (std::count(KINDS.begin(), KINDS.end(), entry.path().extension().string()) > 0) {
                files.push_back(entry.path());
            }
        }
        std::sort(files.begin(), files.end());
        return files;
    }
    // Returns the code of the open.
    int use(const std::string& path) {
        TestDocument document(*client, *queue, path, 480, 800);
        document.paint();
        for (int i = 0; i < amount(2, 20); ++i) {
            document.drag(799);
        }
        document.pinch(1.5);
        document.call("/common", "Search", R"(,"search":"a")");
        document.call("/common", "nextSearchResult");
        document.call("/common", "getDocProperties");
        document.call("/excel", "getSheetList");
        document.call("/ppt", "getSlideList");
        return document.openResult();
    }
    void useAll(const std::string& what, const std::vector<std::string>& files) {
        WatchedDocuments others(*client, *queue, tours());
        std::map<int, int> codes;
        double longest = 0;
        std::string slowest;
        for (const std::string& file : files) {
            const auto start = std::chrono::steady_clock::now();
            ++codes[use(file)];
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
            if (taken.count() > longest) {
                longest = taken.count();
                slowest = std::filesystem::path(file).filename();
            }
            ASSERT_NO_FATAL_FAILURE(expectAlive()) << file;
            others.look();
        }
        EXPECT_EQ(others.changed(), 0);
        std::string results;
        for (const auto& [code, count] : codes) {
            results +=
                (results.empty() ? "" : ", ") + std::to_string(count) + " with code " + std::to_string(code);
        }
        addRow("files", std::to_string(files.size()) + " " + what,
               "service alive; opened " + results + "; longest " + std::to_string(static_cast<int>(longest)) +
                   " s (" + slowest + "); " + std::to_string(others.changed()) +
                   " pictures of others changed");
        others.close();
    }
};

TEST_F(FileTorture, BombsCostThemselvesAlone) {
    python({BOMB_SCRIPT, folder.path() + "/bombs", amount(1, 0) == 1 ? "small" : "large"});
    useAll("bombs", filesIn(folder.path() + "/bombs"));
    expectServing();
}

TEST_F(FileTorture, FilesOfACollectionAreSurvived) {
    const char* const collection = std::getenv("LECTERN_TORTURE_FILES");
    useAll(collection != nullptr ? "files of a collection" : "samples",
           filesIn(collection != nullptr ? collection : SAMPLES_FOLDER));
    expectServing();
}

} // namespace
