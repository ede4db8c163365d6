// SPDX-License-Identifier: Apache-2.0
// service_bench [ROUNDS]: measures the whole service and prints ratios to baselines
// measured in the same run.
#include "bench/service/RunningService.h"

#include <sched.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
    if (argc > 2 || rounds < 1) {
        std::fprintf(stderr, "usage: service_bench [ROUNDS]\n");
        return 2;
    }
    if (unshare(CLONE_NEWIPC | (geteuid() == 0 ? 0 : CLONE_NEWUSER)) != 0) {
        std::perror("service_bench: unshare");
        return 1;
    }
    try {
        openFigures(rounds);
        searchFigures(rounds);
        paintFigures();
        memoryFigures();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "service_bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}
