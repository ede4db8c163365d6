// SPDX-License-Identifier: Apache-2.0
#include "tests/system/module/ModuleView.h"

#include "tests/system/support/Subprocess.h"

#include <algorithm>
#include <filesystem>

namespace lectern::test {

namespace {

const std::string& folder() {
    static const TemporaryFolder temporary;
    return temporary.path();
}

const std::uint16_t* units(const std::u16string& text) {
    return reinterpret_cast<const std::uint16_t*>(text.c_str());
}

} // namespace

ModuleView::ModuleView(const std::string& path, std::int32_t width, std::int32_t height, std::int32_t dpi) {
    EXPECT_EQ(mDocument.open(path, "/tmp"), MODULE_OK) << path;
    resize(width, height, dpi);
}

void ModuleView::resize(std::int32_t width, std::int32_t height, std::int32_t dpi) {
    mWidth = width;
    mHeight = height;
    mPixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    EXPECT_EQ(wordModule().wtg_set_offscreen_buffer(get(), 0, mPixels.data(), width, height), MODULE_OK);
    EXPECT_EQ(wordModule().wtg_set_dpi(get(), dpi), MODULE_OK);
    rows();
}

std::uint32_t ModuleView::at(std::int32_t x, std::int32_t y) const {
    return mPixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) +
                   static_cast<std::size_t>(x)];
}

std::uint32_t ModuleView::count() const {
    std::uint32_t scratch = 0;
    std::uint32_t count = 0;
    EXPECT_EQ(wordModule().wtg_get_character_count(get(), 0, &scratch, &count), MODULE_OK);
    return count;
}

std::int32_t ModuleView::rows() const {
    std::int32_t width = 0;
    std::int32_t rows = 0;
    EXPECT_EQ(wordModule().wtg_page_layout_size(get(), 0, &width, &rows), MODULE_OK);
    return rows;
}

std::uint32_t ModuleView::topLeft() const {
    std::uint32_t position = 0;
    EXPECT_EQ(wordModule().wtg_get_top_left_character(get(), 0, &position), MODULE_OK);
    return position;
}

void ModuleView::jump(std::uint32_t position) const {
    EXPECT_EQ(wordModule().wtg_jump_to_character(get(), 0, position), MODULE_OK);
}

std::u16string ModuleView::copy() const {
    std::int32_t length = 0;
    EXPECT_EQ(wordModule().wtg_copy_selection(get(), nullptr, 0, 0, &length), MODULE_OK);
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    EXPECT_EQ(wordModule().wtg_copy_selection(get(), reinterpret_cast<std::uint16_t*>(text.data()),
                                              length + 1, 0, &length),
              MODULE_OK);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::u16string ModuleView::text() const {
    EXPECT_EQ(wordModule().wtg_select_all(get()), MODULE_OK);
    std::u16string all = copy();
    EXPECT_EQ(wordModule().wtg_clear_selection(get()), MODULE_OK);
    return all;
}

std::vector<Hit> ModuleView::find(const std::u16string& text) const {
    const std::uint8_t colour[3] = {128, 192, 255};
    EXPECT_EQ(wordModule().wtg_set_highlight_color(get(), colour), MODULE_OK);
    std::uint32_t from = 0;
    std::uint32_t to = count();
    const wtg_find_result* results = nullptr;
    std::int32_t found = -1;
    EXPECT_EQ(wordModule().wtg_find(get(), units(text), 0, &from, &to, &results, &found), MODULE_OK);
    std::vector<Hit> hits;
    for (std::int32_t i = 0; i < found; i++) {
        hits.push_back({results[i].start, results[i].end});
    }
    return hits;
}

std::vector<Region> ModuleView::regions() const {
    const wtg_find_region* regions = nullptr;
    std::int32_t count = -1;
    EXPECT_EQ(wordModule().wtg_get_found_regions(get(), 0, &count, &regions), MODULE_OK);
    std::vector<Region> all;
    for (std::int32_t i = 0; i < count; i++) {
        const module_rect* const first = regions[i].rectangles;
        all.push_back({regions[i].position, {first, first + regions[i].rectangle_count}});
    }
    return all;
}

wtg_click_info ModuleView::click(std::int32_t x, std::int32_t y) const {
    const wtg_click_info* info = nullptr;
    EXPECT_EQ(wordModule().wtg_get_click_info(get(), x, y, &info), MODULE_OK);
    return info != nullptr ? *info : wtg_click_info{-1, 0, 0, 0};
}

void ModuleView::pointAt(const std::u16string& text, std::int32_t& x, std::int32_t& y) const {
    find(text);
    const std::vector<Region> found = regions();
    EXPECT_EQ(wordModule().wtg_stop_find(get()), MODULE_OK);
    ASSERT_FALSE(found.empty());
    const module_rect& first = found.front().rectangles.front();
    x = first.x + first.width / 2;
    y = first.y + first.height / 2;
}

wtg_click_info ModuleView::clickOn(const std::u16string& text) const {
    std::int32_t x = -1;
    std::int32_t y = -1;
    pointAt(text, x, y);
    return click(x, y);
}

std::vector<std::uint32_t> ModuleView::popup(const wtg_click_info& info) {
    std::vector<std::uint32_t> pixels(280 * 1000, 0x42);
    EXPECT_EQ(wordModule().wtg_set_offscreen_buffer(get(), 0, pixels.data(), 280, 1000), MODULE_OK);
    EXPECT_EQ(wordModule().wtg_open_secondary_document(get(), info.a, info.b, info.c, 950), MODULE_OK);
    EXPECT_EQ(wordModule().wtg_set_offscreen_buffer(get(), 0, mPixels.data(), mWidth, mHeight), MODULE_OK);
    EXPECT_EQ(wordModule().wtg_close_secondary_document(get()), MODULE_OK);
    return pixels;
}

std::string generated(const std::string& script, std::vector<std::string> arguments) {
    std::string name = script;
    for (const std::string& argument : arguments) {
        name += "-" + argument;
    }
    std::replace(name.begin(), name.end(), '/', '_');
    const std::string path = folder() + "/" + name + ".docx";
    if (!std::filesystem::exists(path)) {
        std::vector<std::string> command{"python3", SAMPLES_FOLDER "/" + script};
        for (const std::string& argument : arguments) {
            command.push_back(argument == "OUT" ? path : argument);
        }
        Subprocess maker(command, {{"PYTHONDONTWRITEBYTECODE", "1"}}, folder() + "/maker");
        EXPECT_EQ(maker.wait(std::chrono::seconds(60)), std::optional<int>(0)) << maker.errors();
    }
    return path;
}

std::string linkedDocument() {
    return generated("make_linked_docx.py", {"OUT"});
}

std::string longDocument(int pages, const std::string& word, int hits) {
    return generated("make_long_docx.py", {std::to_string(pages), "OUT", word, std::to_string(hits)});
}

} // namespace lectern::test
