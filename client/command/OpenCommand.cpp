// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "client/CommonCalls.h"
#include "client/Navigation.h"
#include "client/command/Commands.h"
#include "client/command/OpenDocument.h"
#include "client/command/OutputFile.h"
#include "client/command/PngImage.h"

namespace lectern {

namespace {

Failure widen(Document& document) {
    if (document.kind() != DocumentKind::wordProcessing) {
        return Error{Error::Kind::argument, "--wide is for word-processing documents only", 0, {}};
    }
    return document.wideMode(true);
}

// Says so when the view's limits have kept it from the zoom asked for.
Failure zoom(Document& document, double factor, const CallLimits& limits) {
    const double before = document.state().scale;
    if (Failure failure = pinch(document, factor, limits)) {
        return failure;
    }
    const double reached = document.state().scale / before;
    constexpr double closeEnough = 0.005;
    if (std::abs(reached - factor) > closeEnough * factor) {
        std::fprintf(stderr, "lectern: zoomed by %.3g, which is as far as this view goes\n", reached);
    }
    return std::nullopt;
}

Failure scroll(Document& document, Point target, const CallLimits& limits) {
    const Result<bool> arrived = scrollTo(document, target, limits);
    if (!arrived) {
        return arrived.error();
    }
    if (!*arrived) {
        const ViewState state = document.state();
        std::fprintf(stderr, "lectern: scrolled to %d,%d, which is as far as the document goes\n",
                     state.scrollX, state.scrollY);
    }
    return std::nullopt;
}

// Marks the hits and moves to the one asked for, or as far as there are any.
Failure search(Document& document, const std::string& text, int hit, const CallLimits& limits) {
    const Result<int> hits = common::search(document.bus(), document.docid(), text, limits);
    if (!hits) {
        return hits.error();
    }
    // Presentations show their hits and never count them.
    const bool counted = document.kind() != DocumentKind::presentation;
    if (counted && *hits < hit) {
        std::fprintf(stderr, "lectern: '%s' is found %d times\n", text.c_str(), *hits);
    }
    for (int at = 1; at < (counted ? std::min(hit, *hits) : hit); ++at) {
        if (Failure failure = common::nextResult(document.bus(), document.docid(), limits)) {
            return failure;
        }
    }
    return document.paint(limits);
}

Failure show(Document& document, const OpenArguments& arguments, const CallLimits& limits) {
    Failure failure = document.paint(limits);
    if (!failure && arguments.wide) {
        failure = widen(document);
    }
    if (!failure && arguments.zoom != 1.0) {
        failure = zoom(document, arguments.zoom, limits);
    }
    // A document opens at its start, and only moves of the view lead away.
    const bool moved = arguments.wide || arguments.zoom != 1.0 || arguments.scroll != Point();
    if (!failure && moved) {
        failure = scroll(document, arguments.scroll, limits);
    }
    if (!failure && arguments.search) {
        failure = search(document, *arguments.search, arguments.hit, limits);
    }
    return failure;
}

} // namespace

int runOpen(const OpenArguments& arguments, Interrupt& interrupt) {
    if (const Failure failure = checkOutput(arguments.output)) {
        return report(*failure);
    }
    OpenOptions options;
    options.width = arguments.width;
    options.height = arguments.height;
    options.password = arguments.password;
    Result<OpenDocument> opened = OpenDocument::open(arguments.file, options, interrupt);
    if (!opened) {
        return report(opened.error());
    }
    Document& document = opened->document();
    if (const Failure failure = show(document, arguments, {.stop = interrupt.token()})) {
        return report(*failure);
    }
    const FrameBuffer& frame = document.frame();
    const Failure failure = writeOutput(arguments.output, [&frame](std::FILE* stream) {
        return writePng(stream, frame.pixels(), frame.width(), frame.height());
    });
    return failure ? report(*failure) : statusDone;
}

} // namespace lectern
