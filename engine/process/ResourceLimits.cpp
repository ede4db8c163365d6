// SPDX-License-Identifier: Apache-2.0
#include "engine/process/ResourceLimits.h"

#include <sys/resource.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

namespace lectern::engine {
namespace {

constexpr rlim_t MEGABYTE = rlim_t{1} << 20;
#ifdef __SANITIZE_ADDRESS__
// The sanitizer keeps freed blocks for a while and needs shadow memory.
constexpr rlim_t MEMORY = 8192 * MEGABYTE;
#else
constexpr rlim_t MEMORY = 1024 * MEGABYTE;
#endif
constexpr rlim_t FORK_SERVER_MEMORY = MEMORY + MEMORY / 2;
constexpr rlim_t FILE_SIZE = 512 * MEGABYTE;
// Out of 1000; an ordinary program has 0.
constexpr int OOM_SCORE = 500;

void setLimit(__rlimit_resource resource, rlim_t value, const char* what) {
    const rlimit limit{value, value};
    if (setrlimit(resource, &limit) != 0) {
        std::fprintf(stderr, "engine: no limit for %s\n", what);
    }
}

// Private writable memory of this process in bytes, as RLIMIT_DATA counts it.
// The amount mapped at the start differs by orders of magnitude between builds.
rlim_t dataInUse() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmData:", 0) == 0) {
            return rlim_t{std::stoull(line.substr(std::strlen("VmData:")))} * 1024;
        }
    }
    return 0;
}

} // namespace

void limitForkServer() {
    setLimit(RLIMIT_CORE, 0, "core dumps");
    setLimit(RLIMIT_FSIZE, FILE_SIZE, "file sizes");
    setLimit(RLIMIT_DATA, dataInUse() + FORK_SERVER_MEMORY, "memory");
    if (!(std::ofstream("/proc/self/oom_score_adj") << OOM_SCORE << std::flush)) {
        std::fprintf(stderr, "engine: does not go first when memory runs out\n");
    }
}

void limitEngine() {
    setLimit(RLIMIT_DATA, dataInUse() + MEMORY, "memory");
}

} // namespace lectern::engine
