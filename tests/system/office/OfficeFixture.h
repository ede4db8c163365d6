// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/WordDocument.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lectern::engine::test {

// A document with a surface, and helpers for tests.
class View {
public:
    View(std::unique_ptr<WordDocument> document, int32_t width, int32_t height, int32_t dpi);

    WordDocument& document() { return *mDocument; }
    int32_t width() const { return mWidth; }
    int32_t height() const { return mHeight; }
    const std::vector<uint32_t>& pixels() const { return mPixels; }

    // Sets another surface size and resolution; the next call lays out.
    void resize(int32_t width, int32_t height, int32_t dpi);
    // The stretch painted anew on an empty surface.
    std::vector<uint32_t> repainted();

    int32_t rows();
    StretchPlace place();
    int32_t usedRows() { return place().usedRows; }
    uint32_t topLeft() { return place().topLeft; }
    uint32_t bottomRight() { return place().bottomRight; }
    uint32_t count();
    int32_t scrollDown(int32_t rows);
    int32_t scrollUp(int32_t rows);

    bool isWhite(int32_t x, int32_t y) const { return at(x, y) == 0xFFFFFFFF; }
    uint32_t at(int32_t x, int32_t y) const { return mPixels[static_cast<size_t>(y * mWidth + x)]; }
    // Number of pixels in columns [left, right) of the stretch that are not white.
    int32_t ink(int32_t left, int32_t right) const;
    int32_t ink() const { return ink(0, mWidth); }

private:
    std::unique_ptr<WordDocument> mDocument;
    std::vector<uint32_t> mPixels;
    int32_t mWidth = 0;
    int32_t mHeight = 0;
};

// Sets what the tests use; main() calls this before they run.
void useForTests(Office& office, const std::string& folder);
// A folder for files, removed when the process ends.
const std::filesystem::path& testFolder();

// The suite, started once for the process.
class OfficeTest : public testing::Test {
public:
    static Office& office();
    static std::filesystem::path write(const std::string& name, std::string_view bytes);
    // Opens a document; a failure fails the test.
    static std::unique_ptr<View> view(const std::filesystem::path& path, int32_t width = 480,
                                      int32_t height = 800, int32_t dpi = 72);
    static int32_t openResult(const std::filesystem::path& path, const std::string& password = "");
    // Lines with "word 1 of line 1 ...".
    static std::string numberedLines(int lines, int wordsOnALine = 30);
};

} // namespace lectern::engine::test
