// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/Moves.h"
#include "client/command/OpenDocument.h"
#include "client/command/OutputFile.h"
#include "client/command/Picture.h"
#include <lectern/Navigation.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace lectern {

namespace {

Failure widen(Document& document) {
    const Failure failure = requireKind(document, DocumentKind::WordProcessing, "--wide");
    return failure ? failure : document.wideMode(true);
}

Failure turnTo(Document& document, const OpenArguments& arguments, const CallLimits& limits) {
    if (arguments.sheet) {
        const Failure failure = requireKind(document, DocumentKind::Spreadsheet, "--sheet");
        return failure ? failure : goToSheet(document, *arguments.sheet, limits);
    }
    if (arguments.slide) {
        const Failure failure = requireKind(document, DocumentKind::Presentation, "--slide");
        return failure ? failure : goToSlide(document, *arguments.slide, limits);
    }
    return std::nullopt;
}

// Zooms, and prints a message when the view's limits prevent the requested zoom.
Failure zoom(Document& document, double factor, const CallLimits& limits) {
    const double before = document.state().scale;
    if (Failure failure = pinch(document, factor, limits)) {
        return failure;
    }
    const double reached = document.state().scale / before;
    constexpr double CLOSE_ENOUGH = 0.005;
    if (std::abs(reached - factor) > CLOSE_ENOUGH * factor) {
        std::fprintf(stderr, "lectern: zoomed by %.3g only, the limit of this view\n", reached);
    }
    return std::nullopt;
}

// The scroll position, but at least 0: a document smaller than the view is
// centred and has a negative one.
Point place(const Document& document) {
    const ViewState state = document.state();
    return {std::max(state.scrollX, 0), std::max(state.scrollY, 0)};
}

Failure scroll(Document& document, Point target, const CallLimits& limits) {
    const Result<bool> arrived = scrollTo(document, target, limits);
    if (!arrived) {
        return arrived.error();
    }
    if (const Point reached = place(document); reached != target) {
        std::fprintf(stderr, "lectern: scrolled to %d,%d only, where the document ends\n", reached.x,
                     reached.y);
    }
    return std::nullopt;
}

// Marks the hits and moves to hit number `hit`, or to the last one if there are fewer.
Failure search(Document& document, const std::string& text, int hit, const CallLimits& limits) {
    const Result<std::optional<int>> found = goToFirstHit(document, text, limits);
    if (!found) {
        return found.error();
    }
    const int hits = found->value_or(hit);
    if (hits < hit) {
        const std::string often = hits == 0   ? "not found"
                                  : hits == 1 ? "found once"
                                              : "found " + std::to_string(hits) + " times";
        std::fprintf(stderr, "lectern: '%s' was %s\n", text.c_str(), often.c_str());
    }
    for (int at = 1; at < std::min(hit, hits); ++at) {
        if (Failure failure = goToNextHit(document, limits)) {
            return failure;
        }
    }
    return document.paint(limits);
}

Failure show(Document& document, const OpenArguments& arguments, const CallLimits& limits) {
    Failure failure = document.paint(limits);
    if (!failure) {
        failure = turnTo(document, arguments, limits);
    }
    if (!failure && arguments.wide) {
        failure = widen(document);
    }
    if (!failure && arguments.zoom != 1.0) {
        failure = zoom(document, arguments.zoom, limits);
    }
    // A document opens at its start and stays there until the view is moved.
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
    const auto work = [&](Document& document, const CallLimits& limits) -> Failure {
        const Failure failure = show(document, arguments, limits);
        return failure ? failure : writePicture(arguments.output, document.frame());
    };
    OpenOptions options = openOptions(arguments.view, arguments.password);
    options.width = arguments.width;
    options.height = arguments.height;
    return withDocument({arguments.file, arguments.type}, std::move(options), interrupt, work);
}

} // namespace lectern
