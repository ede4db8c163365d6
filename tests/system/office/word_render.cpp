// SPDX-License-Identifier: Apache-2.0
// word_render FILE WIDTH HEIGHT DPI SCROLL OUT.png: paints one stretch of a
// document, for looking at. Times go to standard error, in milliseconds.
#include "engine/office/WordDocument.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <png.h>
#include <unistd.h>
#include <vector>

namespace {

using lectern::engine::Office;
using lectern::engine::WordDocument;

double now() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

bool writePng(const char* path, const std::vector<uint32_t>& pixels, int32_t width, int32_t height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_BGRA;
    return png_image_write_to_file(&image, path, 0, pixels.data(), 0, nullptr) != 0;
}

int render(char** argv) {
    char directory[] = "/tmp/word-render-XXXXXX";
    if (mkdtemp(directory) == nullptr)
        return 1;
    setenv("TMPDIR", directory, 1);            // the suite leaves files in it
    const int32_t width = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int32_t height = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    const int32_t scroll = std::atoi(argv[5]); // NOLINT(cert-err34-c)
    const double start = now();
    const auto office = Office::start(std::string(directory) + "/profile");
    const double started = now();
    std::unique_ptr<WordDocument> document;
    const char* password = std::getenv("WORD_PASSWORD");
    const int32_t result = office ? WordDocument::open(*office, argv[1], password != nullptr ? password : "",
                                                       directory, document)
                                  : -1;
    const double opened = now();
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
    int32_t scrolled = 0;
    int32_t rows = 0;
    uint32_t top = 0;
    uint32_t bottom = 0;
    uint32_t count = 0;
    int32_t words = 0;
    double laidOut = opened;
    double positions = opened;
    if (document) {
        document->setSurface(pixels.data(), width, height);
        document->setDpi(std::atoi(argv[4])); // NOLINT(cert-err34-c)
        int32_t ignored = 0;
        document->layoutSize(ignored, rows);
        laidOut = now();
        if (scroll > 0)
            document->scrollDown(scroll, scrolled);
        document->topLeftCharacter(top);
        document->bottomRightCharacter(bottom);
        document->characterCount(count);
        positions = now();
        document->wordCount(words);
    }
    std::fprintf(
        stderr,
        "result %d, %d rows, scrolled %d, characters %u..%u of %u, %d words; start %.0f, open %.0f, layout "
        "and paint %.0f, positions %.1f\n",
        result, rows, scrolled, top, bottom, count, words, started - start, opened - started,
        laidOut - opened, positions - laidOut);
    const bool written = result == 0 && writePng(argv[6], pixels, width, height);
    std::filesystem::remove_all(directory);
    return written ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 7) {
        std::fprintf(stderr, "usage: word_render FILE WIDTH HEIGHT DPI SCROLL OUT.png\n");
        return 2;
    }
    // The suite does not survive an ordinary exit.
    _exit(render(argv));
}
