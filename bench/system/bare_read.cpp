// SPDX-License-Identifier: Apache-2.0
// bare_read FILE: the least that an open must wait for. Reads the file into the office
// suite without any picture, and prints the milliseconds of each step: start, read.
#include "bench/system/BareDocument.h"

#include <cstdio>

namespace {

int measure(char** argv, const std::string& profile) {
    // Never destroyed: the suite is not shut down.
    auto* const document = bare::Document::read(argv[1], profile).release();
    if (document == nullptr) {
        return 1;
    }
    std::printf("start %.1f read %.1f\n", document->startTime(), document->loadTime());
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 || argv[1][0] != '/') {
        std::fprintf(stderr, "usage: bare_read /ABSOLUTE/FILE\n");
        return 2;
    }
    bare::run(measure, argv);
}
