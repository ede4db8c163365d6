// SPDX-License-Identifier: Apache-2.0
// The private memory of the service and its engines, from the kernel's smaps_rollup.
#include "bench/service/RunningService.h"

#include <cstdio>
#include <sstream>

namespace {

double privateMiB(pid_t pid) {
    std::istringstream lines(readFile("/proc/" + std::to_string(pid) + "/smaps_rollup"));
    std::string line;
    double kib = 0;
    while (std::getline(lines, line)) {
        if (line.rfind("Private_", 0) == 0) {
            kib += std::stod(line.substr(line.find(':') + 1));
        }
    }
    return kib / 1024;
}

} // namespace

void memoryFigures() {
    constexpr int WIDTH = 480;
    constexpr int HEIGHT = 800;
    const std::string file = std::string(SAMPLES_FOLDER) + "/tour.docx";
    RunningService service;
    std::printf("\nPrivate memory, MiB\n%-46s %7.1f\n", "service, no document", privateMiB(service.pid()));
    TestDocument first(service.bus(), service.queue(), file, WIDTH, HEIGHT);
    first.paint();
    service.waitForSpare(1);
    // The stretch of about 500,000 pixels, the copy of the last frame and the pop-up's pixmap.
    const double surfaces = (500000.0 + WIDTH * HEIGHT + (WIDTH - 40) * 1000.0) * 4 / (1024 * 1024);
    std::printf("%-46s %7.1f\n", "service, one document, without surfaces",
                privateMiB(service.pid()) - surfaces);
    std::printf("%-46s %7.1f\n", "engine with a small document", privateMiB(service.engines().front()));
    std::printf("%-46s %7.1f\n", "spare engine", privateMiB(service.engines().back()));
    TestDocument second(service.bus(), service.queue(), file, WIDTH, HEIGHT);
    second.paint();
    std::printf("%-46s %7.1f\n", "second engine with a small document", privateMiB(service.engines()[1]));
}
