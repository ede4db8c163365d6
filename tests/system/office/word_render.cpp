// SPDX-License-Identifier: Apache-2.0
// word_render FILE WIDTH HEIGHT DPI SCROLL OUT.png: paints one stretch of a
// document, for viewing. Times go to standard error, in milliseconds.
#include "engine/office/word/WordDocument.h"
#include "tests/system/office/Rendering.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

using lectern::engine::Office;
using lectern::engine::WordDocument;
using rendering::now;
using rendering::writePng;

int render(char** argv) {
    char directory[] = "/tmp/word-render-XXXXXX";
    if (mkdtemp(directory) == nullptr) {
        return 1;
    }
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
    lectern::engine::StretchPlace place;
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
        if (scroll > 0) {
            document->scrollDown(scroll, scrolled);
        }
        document->stretchPlace(place);
        document->characterCount(count);
        positions = now();
        document->wordCount(words);
    }
    std::fprintf(
        stderr,
        "result %d, %d rows, scrolled %d, characters %u..%u of %u, %d words; start %.0f, open %.0f, layout "
        "and paint %.0f, positions %.1f\n",
        result, rows, scrolled, place.topLeft, place.bottomRight, count, words, started - start,
        opened - started, laidOut - opened, positions - laidOut);
    const bool written = result == 0 && writePng(argv[6], pixels.data(), width, height);
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
