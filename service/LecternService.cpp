// SPDX-License-Identifier: Apache-2.0
// The program lectern-service.
#include "service/Lifecycle.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr char USAGE[] = "Usage: lectern-service [--help | --version]\n";
constexpr char HELP[] = "\n"
                        "Opens office documents for applications, which ask for it on the message bus\n"
                        "as com.kestrel.office, and paints them into shared memory. The bus starts the\n"
                        "service when it is asked for; it ends by itself after 30 seconds without a call.\n"
                        "There is nothing to configure.\n"
                        "\n"
                        "  --help     show this text\n"
                        "  --version  show the version\n";

constexpr int USAGE_STATUS = 2;

// The exit status of a call with arguments.
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
    // Lines reach a log or a pipe as they are written, whatever way the process ends.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    return runService();
}
