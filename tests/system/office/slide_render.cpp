// SPDX-License-Identifier: Apache-2.0
// slide_render FILE SLIDE WIDTH HEIGHT OUT.png [TEXT]: paints a slide, with the
// hits of a search marked, for viewing. Titles, hits and times in milliseconds
// go to standard error.
#include "engine/office/slide/SlideDocument.h"
#include "tests/system/office/OfficeProgram.h"
#include "tests/system/office/Rendering.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

using lectern::engine::Office;
using lectern::engine::PixelRect;
using lectern::engine::SlideDocument;
using lectern::engine::SlideHits;
using rendering::now;
using rendering::writePng;

void tell(SlideDocument& document, int32_t slide) {
    std::u16string title;
    std::u16string note;
    int32_t count = 0;
    int32_t width = 0;
    int32_t height = 0;
    document.slideCount(count);
    document.title(slide, title);
    document.note(slide, note);
    document.dimensions(slide, width, height);
    std::fprintf(stderr, "%d slides of %d x %d, title \"%s\", note of %zu\n", count, width, height,
                 std::string(title.begin(), title.end()).c_str(), note.size());
}

void search(SlideDocument& document, int32_t slide, const char* text) {
    int32_t count = 0;
    std::vector<SlideHits> hits;
    std::vector<std::vector<PixelRect>> regions;
    const std::string wanted = text;
    document.slideCount(count);
    document.setHighlightColor({128, 192, 255});
    const double start = now();
    document.find({wanted.begin(), wanted.end()}, 0, count - 1, hits);
    const double found = now();
    document.render(slide);
    document.foundRegions(regions);
    std::fprintf(stderr, "found in %.1f:", found - start);
    for (const SlideHits& on : hits) {
        std::fprintf(stderr, " %d:%d+%d", on.slide, on.onSlide, on.inNotes);
    }
    for (const auto& region : regions) {
        std::fprintf(stderr, "\n ");
        for (const PixelRect& rect : region) {
            std::fprintf(stderr, " (%d, %d, %d x %d)", rect.x, rect.y, rect.width, rect.height);
        }
    }
    std::fprintf(stderr, "\n");
}

int render(int argc, char** argv, Office& office, const std::string& directory) {
    const int32_t slide = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int32_t width = std::atoi(argv[3]);  // NOLINT(cert-err34-c)
    const int32_t height = std::atoi(argv[4]); // NOLINT(cert-err34-c)
    const double started = now();
    std::unique_ptr<SlideDocument> document;
    int32_t result = SlideDocument::open(office, argv[1], directory, document);
    const double opened = now();
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
    if (document) {
        document->setSurface(pixels.data(), width, height);
        result = document->render(slide);
        const double painted = now();
        document->render(slide);
        const double again = now();
        std::fprintf(stderr, "open %.0f, paint %.2f, again %.2f\n", opened - started, painted - opened,
                     again - painted);
        tell(*document, slide);
        if (argc > 6) {
            search(*document, slide, argv[6]);
        }
    }
    std::fprintf(stderr, "result %d\n", result);
    const bool written = result == 0 && writePng(argv[5], pixels.data(), width, height);
    return written ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 6 || argc > 7) {
        std::fprintf(stderr, "usage: slide_render FILE SLIDE WIDTH HEIGHT OUT.png [TEXT]\n");
        return 2;
    }
    lectern::engine::test::runWithOffice(
        "/tmp/slide-render-XXXXXX",
        [&](Office& office, const std::string& directory) { return render(argc, argv, office, directory); });
}
