// SPDX-License-Identifier: Apache-2.0
#include "bench/service/Figures.h"

#include <time.h>

#include <algorithm>
#include <cstdio>

void printFigure(const std::string& name, double value) {
    std::printf("%s %.4f\n", name.c_str(), value);
    std::fflush(stdout);
}

double quantile(std::vector<double> values, double q) {
    std::sort(values.begin(), values.end());
    return values[static_cast<size_t>(q * static_cast<double>(values.size() - 1) + 0.5)];
}

double now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_nsec) / 1e6;
}
