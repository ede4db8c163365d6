// SPDX-License-Identifier: Apache-2.0
// sheet_figures FILE WORD: the cost of the spreadsheet module compared with the office
// suite behind it. FILE is the absolute path of a workbook with a list on its first sheet.
// Prints the milliseconds of rendering 1500 x 1500 pixels, of finding WORD and of
// sorting, and the suite's own for the same, which bare_sheet measures in the same run.
#include "modules/STGFunc.h"

#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int SIDE = 1500;
constexpr int DPI = 144;
constexpr int STEP = 300; // document pixels between two renderings

double milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

// The least milliseconds of `times` runs, because other work on the machine can only
// make a run slower. Ends the program if a run fails.
template<class Work>
double best(int times, Work work) {
    std::vector<double> taken;
    for (int i = 0; i < times; ++i) {
        const double start = milliseconds();
        if (const int32_t result = work(i); result != 0) {
            std::fprintf(stderr, "sheet_figures: a call failed with %d\n", result);
            std::exit(1);
        }
        taken.push_back(milliseconds() - start);
    }
    return *std::min_element(taken.begin(), taken.end());
}

STGFunc load() {
    STGFunc stg;
    void* module = dlopen(SHEET_MODULE, RTLD_NOW);
    if (module == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(1);
    }
#define LECTERN_BIND(name) stg.name = reinterpret_cast<decltype(stg.name)>(dlsym(module, #name));
    STG_FUNCTIONS(LECTERN_BIND)
#undef LECTERN_BIND
    return stg;
}

struct Suite {
    double paint = 0, copies = 0, find = 0, sort = 0;
};

Suite measureSuite(const std::string& file, const std::string& word) {
    const std::string command = "'" BARE_SHEET "' '" + file + "' '" + word + "'";
    Suite suite;
    FILE* output = popen(command.c_str(), "r"); // NOLINT(cert-env33-c): our own program
    if (output == nullptr || std::fscanf(output, "%lf %lf %lf %lf", &suite.paint, &suite.copies, &suite.find,
                                         &suite.sort) != 4) { // NOLINT(cert-err34-c)
        std::fprintf(stderr, "sheet_figures: no baseline\n");
        std::exit(1);
    }
    pclose(output);
    return suite;
}

void report(const char* what, double module, double suite) {
    std::printf("%s %.3f suite-%s %.3f\n", what, module, what, suite);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: sheet_figures FILE WORD\n");
        return 2;
    }
    const STGFunc stg = load();
    const std::u16string path = std::filesystem::path(argv[1]).u16string();
    const std::u16string word = std::filesystem::path(argv[2]).u16string();
    const auto units = [](const std::u16string& text) {
        return reinterpret_cast<const uint16_t*>(text.c_str());
    };
    void* doc = nullptr;
    if (const int32_t result =
            stg.stg_open_file(units(path), units(u""), units(u"/usr/share/fonts"), units(u"/tmp"), &doc);
        result != 0) {
        std::fprintf(stderr, "sheet_figures: the file does not open: %d\n", result);
        return 1;
    }
    std::vector<uint32_t> cells(size_t{SIDE} * SIDE);
    stg.stg_set_dpi(doc, DPI);
    int32_t left = 0, top = 0, width = 0, height = 0;
    stg.stg_cell_bounds(doc, 0, -1, -1, &left, &top, &width, &height);
    std::vector<uint32_t> rows(static_cast<size_t>(width) * SIDE);
    std::vector<uint32_t> columns(static_cast<size_t>(height) * SIDE);
    stg.stg_set_offscreen_buffer(doc, 0, cells.data(), SIDE, SIDE);
    stg.stg_set_row_offscreen_buffer(doc, 0, rows.data(), width, SIDE);
    stg.stg_set_column_offscreen_buffer(doc, 0, columns.data(), SIDE, height);

    const double render = best(30, [&](int i) { return stg.stg_render_sheet(doc, 0, 0, i % 10 * STEP); });
    const double find = best(5, [&](int) { return stg.stg_find(doc, units(word), 0, 0, 0, 1 << 30); });
    const double sort = best(5, [&](int i) { return stg.stg_sort_ascending(doc, 0, (i % 2) * 2); });
    stg.stg_close_file(&doc);

    const Suite suite = measureSuite(argv[1], argv[2]);
    report("render", render, suite.paint + suite.copies);
    report("find", find, suite.find);
    report("sort", sort, suite.sort);
    return 0;
}
