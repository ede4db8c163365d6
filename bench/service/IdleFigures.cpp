// SPDX-License-Identifier: Apache-2.0
// How often the threads of the service and of its engines wake up in a second (wakeups)
// while nobody touches an open document.
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

#include <unistd.h>

#include <cstdlib>
#include <map>
#include <sstream>

namespace {

// The switches of each thread. One that is woken up and waits again makes one voluntary
// switch.
std::map<std::string, long> switchesOf(const RunningService& service) {
    constexpr char KEY[] = "voluntary_ctxt_switches:";
    std::map<std::string, long> switches;
    for (const pid_t process : service.processes()) {
        for (const std::string& thread : threadsOf(process)) {
            std::istringstream lines(readFile(thread + "/status"));
            for (std::string line; std::getline(lines, line);) {
                if (line.rfind(KEY, 0) == 0) {
                    switches[thread] = std::strtol(line.c_str() + sizeof KEY, nullptr, 10);
                }
            }
        }
    }
    return switches;
}

} // namespace

void idleFigures(const Arguments& arguments) {
    const int seconds = std::stoi(arguments[3]);
    RunningService service;
    const OpenedDocument opened(service, arguments[0], std::stoi(arguments[1]), std::stoi(arguments[2]));
    service.waitUntilQuiet();
    std::map<std::string, long> before = switchesOf(service);
    sleep(static_cast<unsigned>(seconds));
    long woken = 0;
    for (const auto& [thread, count] : switchesOf(service)) {
        woken += count - before[thread];
    }
    printFigure("wakeups", static_cast<double>(woken) / seconds);
}
