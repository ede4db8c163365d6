// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ScrollPlan.h"
#include <lectern/ExcelCalls.h>
#include <lectern/Navigation.h>
#include <lectern/PptCalls.h>
#include <lectern/TouchCalls.h>

namespace lectern {

namespace {

Failure paintAfterInput(Document& document, const CallLimits& limits) {
    document.settle();
    return document.paint(limits);
}

Failure drag(Document& document, const Drag& drag, const CallLimits& limits) {
    Failure failure = document.penDown(drag.from.x, drag.from.y);
    if (!failure) {
        failure = document.penUp(drag.to.x, drag.to.y);
    }
    return failure ? failure : paintAfterInput(document, limits);
}

Point position(const Document& document) {
    const ViewState state = document.state();
    return {state.scrollX, state.scrollY};
}

// With touch manners the service zooms and moves the view to any place by itself.
Failure zoomBy(Document& document, double factor, const CallLimits& limits) {
    const Result<touch::ViewPlace> place = document.ask(touch::getView(), limits);
    if (!place) {
        return place.error();
    }
    Failure failure = document.ask(touch::zoomTo(place->zoom * factor), limits);
    return failure ? failure : paintAfterInput(document, limits);
}

Result<bool> moveTo(Document& document, Point target, const CallLimits& limits) {
    Failure failure = document.ask(touch::scrollTo(target), limits);
    if (!failure) {
        failure = paintAfterInput(document, limits);
    }
    if (failure) {
        return *failure;
    }
    return position(document) == target;
}

} // namespace

Failure pinch(Document& document, double factor, const CallLimits& limits) {
    if (document.manners() == Manners::Touch) {
        return zoomBy(document, factor, limits);
    }
    // The preview is made from the last picture, and the end uses the factor of
    // the last preview.
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
    if (document.manners() == Manners::Touch) {
        return moveTo(document, target, limits);
    }
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
    const Result<int> shown = document.ask(excel::jumpToSheet(sheet), limits);
    if (!shown) {
        return shown.error();
    }
    const Failure failure = document.comeToRest(limits);
    return failure ? failure : paintAfterInput(document, limits);
}

Failure showSlide(Document& document, int slide, const CallLimits& limits) {
    const Result<int> shown = document.ask(ppt::jumpToSlide(slide), limits);
    return shown ? paintAfterInput(document, limits) : shown.error();
}

} // namespace lectern
