// SPDX-License-Identifier: Apache-2.0
// bare_find FILE WIDTH HEIGHT DPI TEXT: the baseline of searches. Prints the
// milliseconds of the office suite's own search for all hits of TEXT, the number of
// hits, and the median milliseconds of painting WIDTH x HEIGHT pixels at places spread
// over the document.
#include "bench/system/BareDocument.h"

#include <com/sun/star/util/XSearchDescriptor.hpp>
#include <com/sun/star/util/XSearchable.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int PLACES = 21;

int measure(char** argv, const std::string& profile) {
    const int width = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int height = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    const int dpi = std::atoi(argv[4]);    // NOLINT(cert-err34-c)
    if (width < 1 || height < 1 || dpi < 1) {
        return 2;
    }
    auto* const document = bare::Document::load(argv[1], profile).release();
    if (document == nullptr) {
        return 1;
    }
    document->reflow(width, dpi);
    const css::uno::Reference<css::util::XSearchable> searchable(document->model(),
                                                                 css::uno::UNO_QUERY_THROW);
    const double start = bare::milliseconds();
    const auto descriptor = searchable->createSearchDescriptor();
    descriptor->setSearchString(rtl::OUString::createFromAscii(argv[5]));
    const auto found = searchable->findAll(descriptor);
    const double searched = bare::milliseconds();
    const int hits = found.is() ? found->getCount() : 0;

    std::vector<double> paints;
    for (int i = 0; i < PLACES; ++i) {
        const double before = bare::milliseconds();
        // Each paint shows a part that was not painted before.
        document->paint((i * 7 % PLACES) * 10 * height, width, height, dpi);
        paints.push_back(bare::milliseconds() - before);
    }
    std::sort(paints.begin(), paints.end());
    std::printf("find %.2f hits %d paint %.2f\n", searched - start, hits, paints[PLACES / 2]);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 6 || argv[1][0] != '/') {
        std::fprintf(stderr, "usage: bare_find /ABSOLUTE/FILE WIDTH HEIGHT DPI TEXT\n");
        return 2;
    }
    bare::run(measure, argv);
}
