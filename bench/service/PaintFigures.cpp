// SPDX-License-Identifier: Apache-2.0
// The round trip of a paint request over the queue, without rendering (trip), and two
// copies of the frame (copies), in turns.
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

#include <cstring>

void paintFigures(const Arguments& arguments) {
    const int width = std::stoi(arguments[1]);
    const int height = std::stoi(arguments[2]);
    const int rounds = std::stoi(arguments[3]);
    RunningService service;
    OpenedDocument opened(service, arguments[0], width, height);
    service.waitUntilQuiet();
    const size_t pixels = static_cast<size_t>(width) * static_cast<size_t>(height);
    std::vector<uint32_t> source(pixels, 0x55), first(source), second(source);
    std::vector<double> trips, copies;
    for (int round = 0; round < rounds; ++round) {
        opened.document().touch(); // because a paint of an unchanged view does nothing
        double start = now();
        opened.document().paint();
        trips.push_back(now() - start);
        start = now();
        std::memcpy(first.data(), source.data(), pixels * sizeof(uint32_t));
        std::memcpy(second.data(), source.data(), pixels * sizeof(uint32_t));
        asm volatile("" : : "r"(first.data()), "r"(second.data()) : "memory");
        copies.push_back(now() - start);
    }
    printFigure("trip", median(trips));
    printFigure("trip-p99", quantile(trips, 0.99));
    printFigure("copies", median(copies));
}
