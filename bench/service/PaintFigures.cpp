// SPDX-License-Identifier: Apache-2.0
// The round trip of a paint request over the queue, without rendering, compared with
// copying the frame twice.
#include "bench/service/RunningService.h"

#include <cstdio>
#include <cstring>
#include <stdexcept>

void paintFigures() {
    constexpr int WIDTH = 480;
    constexpr int HEIGHT = 800;
    constexpr int ROUNDS = 2000;
    RunningService service;
    TestDocument document(service.bus(), service.queue(), std::string(SAMPLES_FOLDER) + "/tour.docx", WIDTH,
                          HEIGHT);
    if (document.openResult() != 0 || document.paint() != 0) {
        throw std::runtime_error("cannot open the sample");
    }
    std::vector<uint32_t> source(WIDTH * HEIGHT, 0x55), first(source), second(source);
    std::vector<double> trips, copies;
    for (int round = 0; round < ROUNDS; ++round) {
        document.touch(); // makes the view dirty, because a paint of an unchanged view does nothing
        double start = now();
        document.paint();
        trips.push_back(now() - start);
        start = now();
        std::memcpy(first.data(), source.data(), source.size() * 4);
        std::memcpy(second.data(), source.data(), source.size() * 4);
        asm volatile("" : : "r"(first.data()), "r"(second.data()) : "memory");
        copies.push_back(now() - start);
    }
    std::printf("\nPaint round trip, %dx%d, %d rounds, us\n", WIDTH, HEIGHT, ROUNDS);
    std::printf("%-22s %9s %9s\n", "", "median", "p99");
    std::printf("%-22s %9.1f %9.1f\n", "round trip", median(trips) * 1000, quantile(trips, 0.99) * 1000);
    std::printf("%-22s %9.1f %9.1f\n", "two copies", median(copies) * 1000, quantile(copies, 0.99) * 1000);
    std::printf("%-22s %9.2f\n", "ratio", median(trips) / median(copies));
}
