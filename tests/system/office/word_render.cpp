// SPDX-License-Identifier: Apache-2.0
// word_render FILE WIDTH HEIGHT DPI SCROLL OUT.png: paints one stretch of a
// document, for viewing. Times go to standard error, in milliseconds.
#include "engine/office/word/WordDocument.h"
#include "tests/system/office/OfficeProgram.h"
#include "tests/system/office/Rendering.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using lectern::engine::Office;
using lectern::engine::WordDocument;
using rendering::now;
using rendering::writePng;

int render(char** argv, Office& office, const std::string& directory) {
    const int32_t width = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int32_t height = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    const int32_t scroll = std::atoi(argv[5]); // NOLINT(cert-err34-c)
    const double started = now();
    std::unique_ptr<WordDocument> document;
    const char* password = std::getenv("WORD_PASSWORD");
    const int32_t result =
        WordDocument::open(office, argv[1], password != nullptr ? password : "", directory, document);
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
    std::fprintf(stderr,
                 "result %d, %d rows, scrolled %d, characters %u..%u of %u, %d words; open %.0f, layout "
                 "and paint %.0f, positions %.1f\n",
                 result, rows, scrolled, place.topLeft, place.bottomRight, count, words, opened - started,
                 laidOut - opened, positions - laidOut);
    const bool written = result == 0 && writePng(argv[6], pixels.data(), width, height);
    return written ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 7) {
        std::fprintf(stderr, "usage: word_render FILE WIDTH HEIGHT DPI SCROLL OUT.png\n");
        return 2;
    }
    lectern::engine::test::runWithOffice(
        "/tmp/word-render-XXXXXX",
        [&](Office& office, const std::string& directory) { return render(argv, office, directory); });
}
