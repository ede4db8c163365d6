// SPDX-License-Identifier: Apache-2.0
// The time from the end of a pinch (zoom) and from the start of wide mode (wide) to the
// frame that shows a text laid out anew.
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

void zoomFigures(const Arguments& arguments) {
    constexpr double FACTOR = 1.5;
    RunningService service;
    OpenedDocument opened(service, arguments[0], std::stoi(arguments[1]), std::stoi(arguments[2]));
    service.waitUntilQuiet();
    TestDocument& document = opened.document();
    Queue& queue = service.queue();
    queue.postGesture(7, document.docid(), 1.0);
    queue.postGesture(8, document.docid(), FACTOR);
    queue.settle(document.store());
    document.paint();
    double start = now();
    queue.postGesture(9, document.docid(), FACTOR);
    queue.settle(document.store());
    document.paint();
    printFigure("zoom", now() - start);
    service.waitUntilQuiet();
    start = now();
    queue.post(10, document.docid(), 1);
    queue.settle(document.store());
    document.paint();
    printFigure("wide", now() - start);
}
