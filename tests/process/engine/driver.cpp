// SPDX-License-Identifier: Apache-2.0
// engine-driver [-w] FILE...: opens each file through the word module, lays it
// out at a width of 320 pixels, prints the result and the time taken, and
// closes it. With -w the last one stays open until standard input ends.

#include "tests/process/engine/EngineHost.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

namespace {

using lectern::test::Document;
using lectern::test::wordModule;
using Clock = std::chrono::steady_clock;

double since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void drive(Document& document, const char* path) {
    constexpr std::int32_t WIDTH = 320;
    constexpr std::int32_t HEIGHT = 1562;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path();

    const auto start = Clock::now();
    const std::int32_t opened = document.open(path, temporary);
    const double open = since(start);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(WIDTH) * HEIGHT);
    std::uint32_t scratch = 0;
    std::uint32_t characters = 0;
    std::int32_t rows = 0;
    std::int32_t laidOut = MODULE_FAILED;
    if (opened == MODULE_OK) {
        wordModule().wtg_set_offscreen_buffer(document.get(), 0, pixels.data(), WIDTH, HEIGHT);
        wordModule().wtg_set_dpi(document.get(), 72);
        laidOut = wordModule().wtg_get_vertical_last_used_pixel(document.get(), 0, &rows);
        wordModule().wtg_get_character_count(document.get(), 0, &scratch, &characters);
    }
    std::printf("%2d %2d %6.3f s open %6.3f s shown %8u characters %5d rows  %s\n", opened, laidOut, open,
                since(start), characters, rows, path);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const bool wait = argc > 1 && std::strcmp(argv[1], "-w") == 0;
    for (int file = wait ? 2 : 1; file < argc; file++) {
        Document document;
        drive(document, argv[file]);
        if (wait && file == argc - 1) {
            while (std::getchar() != EOF) {
            }
        }
    }
    return 0;
}
