// SPDX-License-Identifier: Apache-2.0
// engine_rows FILE WIDTH DPI: prints a hash for every row of a word-processing
// document as the real engine paints it, read through the module without the
// service. A separate program, so that its engines end with it.
#include "modules/WordToGoModule.h"
#include "tests/system/support/RowHash.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr int HEIGHT = 1000;

template<typename F>
F function(void* module, const char* name) {
    return reinterpret_cast<F>(dlsym(module, name));
}

std::u16string wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}
const uint16_t* units(const std::u16string& text) {
    return reinterpret_cast<const uint16_t*>(text.c_str());
}

} // namespace

int main(int argc, char** argv) {
    void* module = argc == 4 ? dlopen(WORD_MODULE, RTLD_NOW) : nullptr;
    if (module == nullptr) {
        return 2;
    }
    const auto open = function<decltype(&wtg_open_file)>(module, "wtg_open_file");
    const auto close = function<decltype(&wtg_close_file)>(module, "wtg_close_file");
    const auto setBuffer = function<decltype(&wtg_set_offscreen_buffer)>(module, "wtg_set_offscreen_buffer");
    const auto setDpi = function<decltype(&wtg_set_dpi)>(module, "wtg_set_dpi");
    const auto used =
        function<decltype(&wtg_get_vertical_last_used_pixel)>(module, "wtg_get_vertical_last_used_pixel");
    const auto down = function<decltype(&wtg_scroll_down)>(module, "wtg_scroll_down");

    const int width = std::atoi(argv[2]);
    const std::u16string file = wide(argv[1]), nothing, fonts = wide("/usr/share/fonts"),
                         temporary = wide("/tmp");
    void* document = nullptr;
    if (open(units(file), units(nothing), units(fonts), units(temporary), &document) != 0) {
        return 1;
    }
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * HEIGHT);
    setBuffer(document, 0, pixels.data(), width, HEIGHT);
    setDpi(document, std::atoi(argv[3]));
    int32_t rows = 0;
    int32_t scrolled = 0;
    do {
        rows = 0;
        used(document, 0, &rows);
        for (int row = 0; row < rows; ++row) {
            const size_t first = static_cast<size_t>(row) * static_cast<size_t>(width);
            std::printf("%llx\n", static_cast<unsigned long long>(rowHash(&pixels[first], width)));
        }
    } while (rows == HEIGHT && down(document, 0, HEIGHT, &scrolled) == 0);
    close(&document);
    return 0;
}
