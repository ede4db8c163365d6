// SPDX-License-Identifier: Apache-2.0
// bare_open FILE WIDTH HEIGHT: the baseline of opening workbooks and presentations.
// Loads the file into the office suite and paints the first frame of a view of this
// size: the corner of the sheet at 144 dpi, or the whole slide at the view's width.
// Prints the milliseconds of each step: start, load, paint.
#include "bench/system/BareDocument.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int SHEET_DPI = 144;
constexpr int TWIPS_PER_INCH = 1440;

int measure(char** argv, const std::string& profile) {
    const int width = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int height = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    if (width < 1 || height < 1) {
        return 2;
    }
    // Never destroyed: the suite is not shut down.
    auto* const document = bare::Document::load(argv[1], profile).release();
    if (document == nullptr) {
        return 1;
    }
    const double loaded = bare::milliseconds();
    if (document->painter().getDocumentType() == LOK_DOCTYPE_PRESENTATION) {
        long slideWidth = 0;
        long slideHeight = 0;
        document->painter().getDocumentSize(&slideWidth, &slideHeight);
        const auto rows = static_cast<int>(slideHeight * width / std::max(slideWidth, 1L));
        document->paintTwips(width, rows, static_cast<int>(slideWidth), static_cast<int>(slideHeight));
    } else {
        document->paintTwips(width, height, width * TWIPS_PER_INCH / SHEET_DPI,
                             height * TWIPS_PER_INCH / SHEET_DPI);
    }
    std::printf("start %.1f load %.1f paint %.1f\n", document->startTime(), document->loadTime(),
                bare::milliseconds() - loaded);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4 || argv[1][0] != '/') {
        std::fprintf(stderr, "usage: bare_open /ABSOLUTE/FILE WIDTH HEIGHT\n");
        return 2;
    }
    bare::run(measure, argv);
}
