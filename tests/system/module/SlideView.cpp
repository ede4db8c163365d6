// SPDX-License-Identifier: Apache-2.0
#include "tests/system/module/SlideView.h"

#include "base/GLibHolder.h"
#include "tests/process/engine/EngineHost.h"

namespace lectern::test {
namespace {

constexpr std::int32_t CAPACITY = 4096;

std::string utf8(const std::vector<std::uint16_t>& units) {
    const lectern::GLibHolder<char> text(g_utf16_to_utf8(units.data(), -1, nullptr, nullptr, nullptr));
    return text ? text.get() : "not UTF-16";
}

} // namespace

SlideView::SlideView(const std::string& path) {
    EXPECT_EQ(mSlideshow.open(path, "/tmp"), MODULE_OK) << path;
}

std::int32_t SlideView::count() const {
    std::int32_t count = -1;
    EXPECT_EQ(slideModule().sstg_get_slide_count(get(), &count), MODULE_OK);
    return count;
}

std::string SlideView::title(std::int32_t slide) const {
    std::vector<std::uint16_t> text(CAPACITY);
    std::int32_t length = -1;
    EXPECT_EQ(slideModule().sstg_get_slide_title(get(), slide, text.data(), CAPACITY, &length), MODULE_OK);
    return utf8(text);
}

std::string SlideView::note(std::int32_t slide) const {
    std::vector<std::uint16_t> text(CAPACITY);
    std::int32_t length = -1;
    std::uint8_t flag = 7;
    EXPECT_EQ(slideModule().sstg_slide_has_note(get(), slide, &flag), MODULE_OK);
    EXPECT_EQ(slideModule().sstg_get_slide_note(get(), slide, text.data(), CAPACITY, 0, &length), MODULE_OK);
    EXPECT_EQ(flag, length > 0 ? 1 : 0);
    return utf8(text);
}

Pixels SlideView::render(std::int32_t slide, std::int32_t width, std::int32_t height) const {
    Pixels pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0x42);
    EXPECT_EQ(slideModule().sstg_render_slide(get(), slide, 0, pixels.data(), width, height), MODULE_OK);
    return pixels;
}

std::vector<sstg_find_info> SlideView::find(const std::string& text) const {
    const std::uint8_t colour[3] = {128, 192, 255};
    const sstg_find_info* infos = nullptr;
    std::int32_t found = -1;
    EXPECT_EQ(slideModule().sstg_set_highlight_color(get(), colour), MODULE_OK);
    EXPECT_EQ(slideModule().sstg_find(get(), wide(text).data(), 0, count() - 1, &infos, &found), MODULE_OK);
    return {infos, infos + found};
}

std::vector<SlideRegion> SlideView::regions() const {
    const sstg_find_region* regions = nullptr;
    std::int32_t count = -1;
    EXPECT_EQ(slideModule().sstg_get_found_regions(get(), &count, &regions), MODULE_OK);
    std::vector<SlideRegion> all;
    for (std::int32_t i = 0; i < count; i++) {
        all.emplace_back(regions[i].rectangles, regions[i].rectangles + regions[i].rectangle_count);
    }
    return all;
}

} // namespace lectern::test
