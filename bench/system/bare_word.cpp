// SPDX-License-Identifier: Apache-2.0
// bare_word FILE WIDTH HEIGHT DPI: the baseline of opening word-processing documents.
// Loads the file into the office suite, lays it out on one giant page of this width,
// paints the top once, and prints the milliseconds of each step: start, load, reflow,
// paint.
#include "bench/system/BareDocument.h"

#include <cstdio>
#include <cstdlib>

namespace {

int measure(char** argv, const std::string& profile) {
    const int width = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int height = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    const int dpi = std::atoi(argv[4]);    // NOLINT(cert-err34-c)
    if (width < 1 || height < 1 || dpi < 1) {
        return 2;
    }
    // Never destroyed: the suite is not shut down.
    auto* const document = bare::Document::load(argv[1], profile).release();
    if (document == nullptr) {
        return 1;
    }
    const double loaded = bare::milliseconds();
    document->reflow(width, dpi);
    const double reflowed = bare::milliseconds();
    document->paint(0, width, height, dpi);
    const double painted = bare::milliseconds();
    std::printf("start %.1f load %.1f reflow %.1f paint %.1f\n", document->startTime(), document->loadTime(),
                reflowed - loaded, painted - reflowed);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5 || argv[1][0] != '/') {
        std::fprintf(stderr, "usage: bare_word /ABSOLUTE/FILE WIDTH HEIGHT DPI\n");
        return 2;
    }
    bare::run(measure, argv);
}
