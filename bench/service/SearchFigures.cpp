// SPDX-License-Identifier: Apache-2.0
// The time of a search from call to reply, and of steps to hits in another stretch of
// the text, with their paint: the first time (step) and when the places of the hits are
// known (again).
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

namespace {

constexpr int WIDTH = 320;
constexpr int HEIGHT = 480;

double timed(OpenedDocument& opened, const char* method, const std::string& more = "") {
    TestDocument& document = opened.document();
    const std::string payload = document.docidPayload();
    const double start = now();
    opened.service().bus().call("/common", method, payload.substr(0, payload.size() - 1) + more + "}");
    if (method == std::string("Search")) {
        return now() - start;
    }
    document.paint();
    const double painted = now();
    opened.service().queue().settle(document.store());
    return painted - start;
}

// Steps from hit to hit and returns the times of those that moved the stretch.
std::vector<double> steps(OpenedDocument& opened, const char* method, int count) {
    std::vector<double> moved;
    for (int i = 0; i < count; ++i) {
        const int before = opened.document().stretchCharacter();
        const double time = timed(opened, method);
        if (opened.document().stretchCharacter() != before) {
            moved.push_back(time);
        }
    }
    return moved;
}

} // namespace

void searchFigures(const Arguments& arguments) {
    const int count = std::stoi(arguments[2]);
    RunningService service;
    OpenedDocument opened(service, arguments[0], WIDTH, HEIGHT);
    service.waitUntilQuiet();
    printFigure("search", timed(opened, "Search", ",\"search\":\"" + arguments[1] + "\""));
    const std::vector<double> first = steps(opened, "nextResult", count);
    steps(opened, "previousResult", count);
    const std::vector<double> again = steps(opened, "nextResult", count);
    if (first.empty() || again.empty()) {
        throw std::runtime_error("no step leaves the stretch; take more steps");
    }
    printFigure("step", median(first));
    printFigure("again", median(again));
}
