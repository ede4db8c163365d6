// SPDX-License-Identifier: Apache-2.0
// The program lectern-service.
#include "service/Lifecycle.h"

#include <malloc.h>

#include <cstdio>
#include <cstring>

namespace {

constexpr char USAGE[] = "Usage: lectern-service [--help | --version]\n";
constexpr char HELP[] = "\n"
                        "Shows office documents to applications: opens a file, paints its visible part\n"
                        "into shared memory and follows touch input. Applications call the service on\n"
                        "D-Bus under the name com.kestrel.office. D-Bus starts it on the first call. It\n"
                        "ends after 30 seconds without a call. It has no configuration.\n"
                        "\n"
                        "  --help     show this text\n"
                        "  --version  show the version\n";

constexpr int USAGE_STATUS = 2;

// Handles command line arguments and returns the exit status.
int answerArguments(int count, char** arguments) {
    if (count == 2 && std::strcmp(arguments[1], "--help") == 0) {
        std::printf("%s%s", USAGE, HELP);
        return 0;
    }
    if (count == 2 && std::strcmp(arguments[1], "--version") == 0) {
        std::printf("lectern-service %s\n", LECTERN_VERSION);
        return 0;
    }
    std::fprintf(stderr, "lectern-service: unknown arguments\n%s", USAGE);
    return USAGE_STATUS;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1) {
        return answerArguments(argc, argv);
    }
    // Line-buffered also for files and pipes, so that no line is lost however the
    // process ends.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    // Each further arena would keep free memory of its own. The threads seldom allocate at
    // the same time.
    mallopt(M_ARENA_MAX, 2);
    return runService();
}
