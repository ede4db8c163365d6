// SPDX-License-Identifier: Apache-2.0
// The memory of the service with all its processes, from the kernel's smaps_rollup, and
// the time of an open, while more and more documents are open. Private memory belongs
// to one process; of memory that several processes share, the proportional set size
// (pss) counts each process's part.
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

#include <cstdlib>
#include <memory>
#include <sstream>

namespace {

struct Memory {
    double privately = 0;
    double pss = 0;
};

Memory memoryOf(const RunningService& service) {
    constexpr double KIB_PER_MIB = 1024;
    Memory memory;
    for (const pid_t process : service.processes()) {
        std::istringstream lines(readFile("/proc/" + std::to_string(process) + "/smaps_rollup"));
        for (std::string line; std::getline(lines, line);) {
            const double size = std::strtod(line.c_str() + line.find(':') + 1, nullptr) / KIB_PER_MIB;
            if (line.rfind("Private_", 0) == 0) {
                memory.privately += size;
            } else if (line.rfind("Pss:", 0) == 0) {
                memory.pss += size;
            }
        }
    }
    return memory;
}

void printMemory(const RunningService& service, const std::string& documents) {
    service.waitUntilQuiet();
    const Memory memory = memoryOf(service);
    printFigure("private-" + documents, memory.privately);
    printFigure("pss-" + documents, memory.pss);
}

} // namespace

void crowdFigures(const Arguments& arguments) {
    const int width = std::stoi(arguments[1]);
    const int height = std::stoi(arguments[2]);
    RunningService service;
    printMemory(service, "0");
    std::vector<std::unique_ptr<OpenedDocument>> documents;
    for (size_t i = 3; i < arguments.size(); ++i) {
        const size_t wanted = std::stoul(arguments[i]);
        double open = 0;
        while (documents.size() < wanted) {
            service.waitUntilQuiet();
            const double called = now();
            documents.push_back(std::make_unique<OpenedDocument>(service, arguments[0], width, height));
            open = now() - called;
        }
        printFigure("open-" + arguments[i], open);
        printMemory(service, arguments[i]);
    }
}
