// SPDX-License-Identifier: Apache-2.0
#include "tests/system/office/OfficeFixture.h"

#include "modules/ModuleResults.h"
#include "tests/system/office/OfficeProgram.h"

#include <algorithm>
#include <fstream>

namespace lectern::engine::test {

View::View(std::unique_ptr<WordDocument> document, int32_t width, int32_t height, int32_t dpi)
    : mDocument(std::move(document)) {
    resize(width, height, dpi);
}

void View::resize(int32_t width, int32_t height, int32_t dpi) {
    mWidth = width;
    mHeight = height;
    mPixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
    EXPECT_EQ(mDocument->setSurface(mPixels.data(), width, height), MODULE_OK);
    EXPECT_EQ(mDocument->setDpi(dpi), MODULE_OK);
}

std::vector<uint32_t> View::repainted() {
    std::vector<uint32_t> fresh(mPixels.size(), 0x12345678);
    EXPECT_EQ(mDocument->setSurface(fresh.data(), mWidth, mHeight), MODULE_OK);
    EXPECT_EQ(mDocument->setSurface(mPixels.data(), mWidth, mHeight), MODULE_OK);
    return fresh;
}

int32_t View::rows() {
    int32_t width = 0;
    int32_t rows = 0;
    EXPECT_EQ(mDocument->layoutSize(width, rows), MODULE_OK);
    EXPECT_EQ(width, mWidth);
    return rows;
}

StretchPlace View::place() {
    StretchPlace place;
    EXPECT_EQ(mDocument->stretchPlace(place), MODULE_OK);
    return place;
}

uint32_t View::count() {
    uint32_t count = UINT32_MAX;
    EXPECT_EQ(mDocument->characterCount(count), MODULE_OK);
    return count;
}

int32_t View::scrollDown(int32_t rows) {
    int32_t scrolled = -1;
    EXPECT_EQ(mDocument->scrollDown(rows, scrolled), MODULE_OK);
    return scrolled;
}

int32_t View::scrollUp(int32_t rows) {
    int32_t scrolled = -1;
    EXPECT_EQ(mDocument->scrollUp(rows, scrolled), MODULE_OK);
    return scrolled;
}

int32_t View::ink(int32_t left, int32_t right) const {
    int32_t count = 0;
    for (int32_t y = 0; y < mHeight; ++y) {
        for (int32_t x = left; x < right; ++x) {
            count += isWhite(x, y) ? 0 : 1;
        }
    }
    return count;
}

namespace {

// Set by main() before the tests run.
Office* gOffice = nullptr;
std::filesystem::path gFolder;

} // namespace

void useForTests(Office& office, const std::string& folder) {
    gOffice = &office;
    gFolder = folder;
}

const std::filesystem::path& testFolder() {
    return gFolder;
}

Office& OfficeTest::office() {
    return *gOffice;
}

std::filesystem::path OfficeTest::write(const std::string& name, std::string_view bytes) {
    const std::filesystem::path path = testFolder() / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

std::unique_ptr<View> OfficeTest::view(const std::filesystem::path& path, int32_t width, int32_t height,
                                       int32_t dpi) {
    std::unique_ptr<WordDocument> document;
    EXPECT_EQ(WordDocument::open(office(), path, "", testFolder(), document), MODULE_OK) << path;
    return document ? std::make_unique<View>(std::move(document), width, height, dpi) : nullptr;
}

int32_t OfficeTest::openResult(const std::filesystem::path& path, const std::string& password) {
    std::unique_ptr<WordDocument> document;
    const int32_t result = WordDocument::open(office(), path, password, testFolder(), document);
    EXPECT_EQ(document != nullptr, result == MODULE_OK);
    return result;
}

std::string OfficeTest::numberedLines(int lines, int wordsOnALine) {
    std::string text;
    for (int line = 1; line <= lines; ++line) {
        for (int word = 1; word <= wordsOnALine; ++word) {
            text += "word " + std::to_string(word) + " of line " + std::to_string(line) + " ";
        }
        text.back() = '\n';
    }
    return text;
}

} // namespace lectern::engine::test

int main(int argc, char** argv) {
    using namespace lectern::engine;
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    test::runWithOffice((std::filesystem::temp_directory_path() / "office-tests-XXXXXX").string(),
                        [](Office& office, const std::string& folder) {
                            test::useForTests(office, folder);
                            return RUN_ALL_TESTS();
                        });
}
