// SPDX-License-Identifier: Apache-2.0
// docs/modules.md compared with the headers, and the module that it shows.
#include "FunctionNames.h"
#include "modules/SSTGFunc.h"
#include "modules/STGFunc.h"
#include "modules/Singleton.h"
#include "modules/TouchFunctions.h"
#include "modules/WTGFunc.h"
#include "tests/guides/Markdown.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr char GUIDE[] = "docs/modules.md";

// Sorted, so that duplicates show.
std::vector<std::string> functionsIn(const std::string& heading) {
    std::vector<std::string> names;
    for (const markdown::Row& row : markdown::table(GUIDE, heading, "Function").rows) {
        for (const std::string& name : markdown::codes(row.at(0))) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

template<size_t count>
std::vector<std::string> sorted(const char* const (&names)[count]) {
    std::vector<std::string> list(std::begin(names), std::end(names));
    std::sort(list.begin(), list.end());
    return list;
}

TEST(ModuleGuide, NamesEveryFunctionOnce) {
    EXPECT_EQ(functionsIn("Texts: WordToGoModule.so"), sorted(WORD_FUNCTIONS));
    EXPECT_EQ(functionsIn("Spreadsheets: SheetToGoModule.so"), sorted(SHEET_FUNCTIONS));
    EXPECT_EQ(functionsIn("Presentations: SlideshowToGoModule.so"), sorted(SLIDE_FUNCTIONS));
}

TEST(ModuleGuide, CountsTheFunctions) {
    std::map<std::string, size_t> counts;
    for (const markdown::Row& row :
         markdown::table(GUIDE, "Bringing your own rendering module", "File").rows) {
        counts[markdown::codes(row.at(0)).at(0)] = std::stoul(row.at(2));
    }
    EXPECT_EQ(counts, (std::map<std::string, size_t>{
                          {"WordToGoModule.so", sizeof(WTGFunc) / sizeof(void*)},
                          {"SheetToGoModule.so", sizeof(STGFunc) / sizeof(void*)},
                          {"SlideshowToGoModule.so", sizeof(SSTGFunc) / sizeof(void*)},
                      }));
}

TEST(ModuleGuide, TellsTheSizesOfTheRecords) {
    std::map<std::string, size_t> sizes;
    for (const markdown::Row& row : markdown::table(GUIDE, "Rules", "Record").rows) {
        sizes[markdown::codes(row.at(0)).at(0)] = std::stoul(row.at(sizeof(void*) == 8 ? 1 : 2));
    }
    EXPECT_EQ(sizes, (std::map<std::string, size_t>{{"module_rect", sizeof(module_rect)},
                                                    {"wtg_find_result", sizeof(wtg_find_result)},
                                                    {"wtg_find_region", sizeof(wtg_find_region)},
                                                    {"wtg_click_info", sizeof(wtg_click_info)},
                                                    {"stg_region", sizeof(stg_region)},
                                                    {"sstg_find_info", sizeof(sstg_find_info)},
                                                    {"sstg_find_region", sizeof(sstg_find_region)},
                                                    {"sstg_outline_item", sizeof(sstg_outline_item)},
                                                    {"lectern_open_request", sizeof(lectern_open_request)}}));
}

TEST(ModuleGuide, ShowsTheModuleThatIsCompiled) {
    const std::string source = markdown::read("docs/examples/SlideshowToGoModule.c");
    const std::vector<std::string> shown = markdown::blocks(markdown::read(GUIDE), "c");
    EXPECT_EQ(shown, std::vector{source.substr(source.find("#include"))});
}

constexpr uint16_t PATH[] = {'/', 'd', 0};

// The module as loaded by a program whose loader search path is the module's folder.
class ShownModule : public testing::Test {
protected:
    void SetUp() override { handle = module.SetFunctionPointers(); }
    void TearDown() override { dlclose(handle); }

    SSTGFunc& module = Singleton<SSTGFunc>::Instance();
    void* handle = nullptr;
    void* document = nullptr;
};

TEST_F(ShownModule, IsTheOneThatTheLoaderFinds) {
    Dl_info info = {};
    ASSERT_NE(dladdr(reinterpret_cast<void*>(module.sstg_open_file), &info), 0);
    EXPECT_EQ(std::string(info.dli_fname), EXAMPLE_MODULE);
}

TEST_F(ShownModule, PaintsItsSlide) {
    ASSERT_EQ(module.sstg_open_file(PATH, PATH, PATH, &document), 0);
    int32_t count = 0, width = 0, height = 0;
    EXPECT_EQ(module.sstg_get_slide_count(document, &count), 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(module.sstg_get_slide_dimensions(document, 0, &width, &height), 0);
    EXPECT_EQ(3 * width, 4 * height);
    std::vector<uint32_t> pixels(7, 0);
    EXPECT_EQ(module.sstg_render_slide(document, 0, 0, pixels.data(), 3, 2), 0);
    EXPECT_EQ(pixels, (std::vector<uint32_t>{0xFFFFFFF0, 0xFFFFFFF0, 0xFFFFFFF0, 0xFFFFFFF0, 0xFFFFFFF0,
                                             0xFFFFFFF0, 0}));
    EXPECT_EQ(module.sstg_close_file(&document), 0);
    EXPECT_EQ(document, nullptr);
}

TEST_F(ShownModule, KeepsTheRules) {
    const uint16_t none[] = {0};
    document = this;
    EXPECT_NE(module.sstg_open_file(none, none, none, &document), 0);
    EXPECT_EQ(document, nullptr) << "a failed open leaves no document";
    EXPECT_NE(module.sstg_close_file(&document), 0);
    int32_t count = 7;
    EXPECT_NE(module.sstg_get_slide_count(nullptr, &count), 0);
    EXPECT_EQ(count, 7) << "untouched";
    const sstg_find_info dummy{};
    const sstg_find_info* infos = &dummy;
    EXPECT_NE(module.sstg_find(nullptr, none, 0, 0, &infos, &count), 0);
    EXPECT_EQ(infos, nullptr);
    EXPECT_EQ(count, 0) << "found counts and arrays are emptied";
    ASSERT_EQ(module.sstg_open_file(PATH, none, none, &document), 0);
    uint32_t pixel = 5;
    EXPECT_NE(module.sstg_render_slide(document, 1, 0, &pixel, 1, 1), 0) << "no such slide";
    EXPECT_NE(module.sstg_render_slide(document, 0, 0, nullptr, 1, 1), 0);
    EXPECT_NE(module.sstg_render_slide(document, 0, 0, &pixel, 0, 1), 0);
    EXPECT_EQ(pixel, 5U);
    module.sstg_close_file(&document);
}

} // namespace
