// SPDX-License-Identifier: Apache-2.0
#include "client/Navigation.h"

#include <thread>

#include "client/EventCalls.h"
#include "client/ExcelCalls.h"
#include "client/PptCalls.h"

namespace lectern {

namespace {

// The slowest glide there is, and one that ends at the pixel where it began.
constexpr int slowest = -1;
constexpr std::chrono::milliseconds slowestGlide{3};

Failure paintAfterInput(Document& document, const CallLimits& limits) {
    document.settle();
    return document.paint(limits);
}

// A sheet measures itself and renders around its place when a glide has ended
// there. The pen up is for the view: a flick is always part of a pen contact.
Failure bringToRest(Document& document, Point pen, const CallLimits& limits) {
    Failure failure = events::handleFlick(document.bus(), document.docid(), 0, slowest, limits);
    if (!failure) {
        failure = document.penUp(pen.x, pen.y);
    }
    std::this_thread::sleep_for(slowestGlide);
    return failure;
}

// A pen up goes no way by itself in a contact that has become a flick.
Failure dragSheet(Document& document, const Drag& drag, const CallLimits& limits) {
    Failure failure = document.penMove(drag.to.x, drag.to.y);
    if (failure) {
        return failure;
    }
    document.settle();
    return bringToRest(document, drag.to, limits);
}

Failure drag(Document& document, const Drag& drag, const CallLimits& limits) {
    Failure failure = document.penDown(drag.from.x, drag.from.y);
    if (!failure) {
        failure = document.kind() == DocumentKind::spreadsheet ? dragSheet(document, drag, limits)
                                                               : document.penUp(drag.to.x, drag.to.y);
    }
    return failure ? failure : paintAfterInput(document, limits);
}

Point position(const Document& document) {
    const ViewState state = document.state();
    return {state.scrollX, state.scrollY};
}

} // namespace

Failure pinch(Document& document, double factor, const CallLimits& limits) {
    // The preview is made from the last picture, and the end takes the factor
    // of the last preview.
    Failure failure = paintAfterInput(document, limits);
    if (!failure) {
        failure = document.gestureStart(1.0);
    }
    if (!failure) {
        failure = document.gestureChange(factor);
    }
    if (!failure) {
        failure = paintAfterInput(document, limits);
    }
    if (!failure) {
        failure = document.gestureEnd(factor);
    }
    return failure ? failure : paintAfterInput(document, limits);
}

Result<bool> scrollTo(Document& document, Point target, const CallLimits& limits) {
    if (Failure failure = paintAfterInput(document, limits)) {
        return *failure;
    }
    ScrollPlan plan(document.frame().width(), document.frame().height(), target);
    while (const std::optional<Drag> step = plan.next(position(document))) {
        if (Failure failure = drag(document, *step, limits)) {
            return *failure;
        }
    }
    return position(document) == target;
}

Failure showSheet(Document& document, int sheet, const CallLimits& limits) {
    const Result<int> shown = excel::jumpToSheet(document.bus(), document.docid(), sheet, limits);
    if (!shown) {
        return shown.error();
    }
    const Failure failure = bringToRest(document, {}, limits);
    return failure ? failure : paintAfterInput(document, limits);
}

Failure showSlide(Document& document, int slide, const CallLimits& limits) {
    const Result<int> shown = ppt::jumpToSlide(document.bus(), document.docid(), slide, limits);
    return shown ? paintAfterInput(document, limits) : shown.error();
}

} // namespace lectern
