// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/EngineRows.h"

#include <dlfcn.h>

#include <stdexcept>

#include "modules/WordToGoModule.h"

namespace {

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

EngineRows::EngineRows(const std::string& path, int width, int dpi) : mWidth(width) {
    constexpr int height = 1000;
    void* module = dlopen(WORD_MODULE, RTLD_NOW);
    if (module == nullptr) {
        throw std::runtime_error(dlerror());
    }
    const auto open = function<decltype(&wtg_open_file)>(module, "wtg_open_file");
    const auto close = function<decltype(&wtg_close_file)>(module, "wtg_close_file");
    const auto setBuffer = function<decltype(&wtg_set_offscreen_buffer)>(module, "wtg_set_offscreen_buffer");
    const auto setDpi = function<decltype(&wtg_set_dpi)>(module, "wtg_set_dpi");
    const auto used =
        function<decltype(&wtg_get_vertical_last_used_pixel)>(module, "wtg_get_vertical_last_used_pixel");
    const auto down = function<decltype(&wtg_scroll_down)>(module, "wtg_scroll_down");

    void* document = nullptr;
    const std::u16string file = wide(path), nothing, fonts = wide("/usr/share/fonts"),
                         temporary = wide("/tmp");
    if (open(units(file), units(nothing), units(fonts), units(temporary), &document) != 0) {
        throw std::runtime_error("the engine cannot open " + path);
    }
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * height);
    setBuffer(document, 0, pixels.data(), width, height);
    setDpi(document, dpi);
    int32_t rows = 0;
    int32_t scrolled = 0;
    do {
        rows = 0;
        used(document, 0, &rows);
        for (int row = 0; row < rows; ++row) {
            mRows.push_back(hash(&pixels[static_cast<size_t>(row) * static_cast<size_t>(width)], width));
        }
    } while (rows == height && down(document, 0, height, &scrolled) == 0);
    close(&document);
    const std::vector<uint32_t> white(static_cast<size_t>(width), 0xFFFFFFFFu);
    mWhite = hash(white.data(), width);
}

bool EngineRows::matches(int row, const uint32_t* pixels) const {
    const uint64_t expected = row >= 0 && row < count() ? mRows[static_cast<size_t>(row)] : mWhite;
    return hash(pixels, mWidth) == expected;
}

// FNV-1a over the pixels' colours.
uint64_t EngineRows::hash(const uint32_t* pixels, int width) {
    uint64_t value = 1469598103934665603ull;
    for (int x = 0; x < width; ++x) {
        value = (value ^ (pixels[x] & 0xFFFFFFu)) * 1099511628211ull;
    }
    return value;
}
