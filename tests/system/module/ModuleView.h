// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/process/engine/EngineHost.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::test {

struct Hit {
    std::uint32_t start, end;
};
struct Region {
    std::uint32_t position;
    std::vector<module_rect> rectangles;
};

// A document opened with the real engine through the module, with a buffer that
// shows a stretch of it. Every call must succeed.
class ModuleView {
public:
    ModuleView(const std::string& path, std::int32_t width, std::int32_t height, std::int32_t dpi = 72);

    void* get() const { return mDocument.get(); }
    void resize(std::int32_t width, std::int32_t height, std::int32_t dpi);
    std::int32_t width() const { return mWidth; }
    std::int32_t height() const { return mHeight; }
    const std::vector<std::uint32_t>& pixels() const { return mPixels; }
    std::uint32_t at(std::int32_t x, std::int32_t y) const;

    std::uint32_t count() const;
    std::int32_t rows() const;
    std::uint32_t topLeft() const;
    void jump(std::uint32_t position) const;
    // The whole text, read by copying a selection of everything; clears the selection.
    std::u16string text() const;
    std::u16string copy() const;

    std::vector<Hit> find(const std::u16string& text) const;
    std::vector<Region> regions() const;
    wtg_click_info click(std::int32_t x, std::int32_t y) const;
    // A point in the middle of the first hit's first rectangle. The hit must be
    // in the stretch.
    void pointAt(const std::u16string& text, std::int32_t& x, std::int32_t& y) const;
    // The click record for the first hit of a text.
    wtg_click_info clickOn(const std::u16string& text) const;
    // The secondary document of a click record, 280 x 1000 pixels.
    std::vector<std::uint32_t> popup(const wtg_click_info& info);

private:
    Document mDocument;
    std::vector<std::uint32_t> mPixels;
    std::int32_t mWidth = 0;
    std::int32_t mHeight = 0;
};

// Generates a sample with a script of the samples' folder and these arguments;
// "OUT" is replaced by the file's path, which is returned.
std::string generated(const std::string& script, std::vector<std::string> arguments);
std::string linkedDocument();
std::string longDocument(int pages, const std::string& word, int hits);

} // namespace lectern::test
