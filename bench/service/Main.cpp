// SPDX-License-Identifier: Apache-2.0
// service_bench MEASUREMENT ARGUMENT...: measures the whole service once and prints the
// figures that scripts/bench compares with others. Runs in an IPC namespace of its own.
#include "bench/service/Figures.h"

#include <sched.h>
#include <unistd.h>

#include <cstdio>
#include <exception>

namespace {

struct Measurement {
    const char* name;
    const char* usage;
    size_t fewest; // arguments
    void (*run)(const Arguments&);
};

constexpr Measurement MEASUREMENTS[] = {
    {"open", "FILE WIDTH HEIGHT", 3, openFigures},
    {"crowd", "FILE WIDTH HEIGHT COUNT...", 4, crowdFigures},
    {"search", "FILE WORD STEPS", 3, searchFigures},
    {"paint", "FILE WIDTH HEIGHT ROUNDS", 4, paintFigures},
    {"call", "FILE ROUNDS", 2, callFigures},
    {"frames", "FILE WIDTH HEIGHT SECONDS WORD [KIND]", 5, frameFigures},
    {"idle", "FILE WIDTH HEIGHT SECONDS", 4, idleFigures},
    {"zoom", "FILE WIDTH HEIGHT", 3, zoomFigures},
};

int misuse() {
    std::fprintf(stderr, "usage: service_bench MEASUREMENT ARGUMENT...\n");
    for (const Measurement& measurement : MEASUREMENTS) {
        std::fprintf(stderr, "  %s %s\n", measurement.name, measurement.usage);
    }
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const Arguments words(argv + 1, argv + argc);
    for (const Measurement& measurement : MEASUREMENTS) {
        if (words.size() <= measurement.fewest || words[0] != measurement.name) {
            continue;
        }
        if (unshare(CLONE_NEWIPC | (geteuid() == 0 ? 0 : CLONE_NEWUSER)) != 0) {
            std::perror("service_bench: unshare");
            return 1;
        }
        try {
            measurement.run(Arguments(words.begin() + 1, words.end()));
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "service_bench: %s\n", failure.what());
            return 1;
        }
        return 0;
    }
    return misuse();
}
