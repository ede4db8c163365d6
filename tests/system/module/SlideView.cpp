// SPDX-License-Identifier: Apache-2.0
#include "tests/system/module/SlideView.h"

#include "tests/system/support/Subprocess.h"
#include "tests/unit/engine/EngineHost.h"

#include <glib.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace lectern::test {
namespace {

constexpr std::int32_t kCapacity = 4096;

const std::string& folder() {
    static const TemporaryFolder temporary;
    return temporary.path();
}

std::string utf8(const std::vector<std::uint16_t>& units) {
    g_autofree gchar* text = g_utf16_to_utf8(units.data(), -1, nullptr, nullptr, nullptr);
    return text == nullptr ? "not UTF-16" : text;
}

std::string run(const std::vector<std::string>& command) {
    static int runs = 0;
    Subprocess process(command, {{"PYTHONDONTWRITEBYTECODE", "1"}, {"PYTHONPATH", SAMPLES_FOLDER}},
                       folder() + "/run" + std::to_string(runs++));
    EXPECT_EQ(process.wait(std::chrono::seconds(60)), std::optional<int>(0)) << process.errors();
    return process.output();
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
    std::vector<std::uint16_t> text(kCapacity);
    std::int32_t length = -1;
    EXPECT_EQ(slideModule().sstg_get_slide_title(get(), slide, text.data(), kCapacity, &length), MODULE_OK);
    return utf8(text);
}

std::string SlideView::note(std::int32_t slide) const {
    std::vector<std::uint16_t> text(kCapacity);
    std::int32_t length = -1;
    std::uint8_t flag = 7;
    EXPECT_EQ(slideModule().sstg_slide_has_note(get(), slide, &flag), MODULE_OK);
    EXPECT_EQ(slideModule().sstg_get_slide_note(get(), slide, text.data(), kCapacity, 0, &length), MODULE_OK);
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

std::vector<WrittenSlide> readSlides(const std::string& path) {
    std::istringstream lines(run({"python3", READ_SLIDES, path}));
    std::vector<WrittenSlide> slides;
    std::string line;
    while (std::getline(lines, line)) {
        WrittenSlide& slide = slides.emplace_back();
        std::istringstream fields(line);
        std::getline(fields, slide.title, '\t');
        std::getline(fields, slide.note, '\t');
        std::getline(fields, slide.text, '\t');
    }
    return slides;
}

std::string slideSample(const std::string& name) {
    return SAMPLES_FOLDER "/" + name;
}

std::string longSlides(int count, int shapes) {
    const std::string path = folder() + "/" + std::to_string(count) + "-" + std::to_string(shapes) + ".pptx";
    if (!std::filesystem::exists(path)) {
        run({"python3", SAMPLES_FOLDER "/make_long_pptx.py", std::to_string(count), path,
             std::to_string(shapes)});
    }
    return path;
}

std::string slideFile(const std::string& name, const std::string& bytes) {
    const std::string path = folder() + "/" + name;
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    return path;
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string madeSlides(const std::string& name, const std::string& python) {
    const std::string path = folder() + "/" + name;
    run({"python3", "-c", "from pptx_writer import *\nOUT = '" + path + "'\n" + python});
    return path;
}

} // namespace lectern::test
