// SPDX-License-Identifier: Apache-2.0
// The time until the first frame of a document is painted: from the start of the
// service's process (demand), and from the call that opens the document when the service
// has prepared what it can (ready).
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

void openFigures(const Arguments& arguments) {
    const std::string& file = arguments[0];
    const int width = std::stoi(arguments[1]);
    const int height = std::stoi(arguments[2]);
    const double started = now();
    RunningService service;
    const OpenedDocument first(service, file, width, height);
    printFigure("demand", now() - started);
    service.waitUntilQuiet();
    const double called = now();
    const OpenedDocument second(service, file, width, height);
    printFigure("ready", now() - called);
}
