// SPDX-License-Identifier: Apache-2.0
#include "engine/process/ResourceLimits.h"

#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>

namespace lectern::engine {
namespace {

constexpr rlim_t MEGABYTE = rlim_t{1} << 20;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// A sanitizer keeps freed blocks for a while and needs shadow memory.
constexpr rlim_t MEMORY = 8192 * MEGABYTE;
constexpr rlim_t ADDRESSES = rlim_t{1} << 47;
#else
constexpr rlim_t MEMORY = 1024 * MEGABYTE;
// Three surfaces of up to 1 GiB, those that replace them, and 70 MiB for each thread.
constexpr rlim_t ADDRESSES = 16384 * MEGABYTE;
#endif
constexpr rlim_t FORK_SERVER_MEMORY = MEMORY + MEMORY / 2;
constexpr rlim_t FILE_SIZE = 512 * MEGABYTE;
constexpr rlim_t DESCRIPTORS = 1024;
constexpr rlim_t PROCESSES = 1024;
constexpr rlim_t SECONDS_OF_PROCESSOR = 3600;
// Out of 1000; an ordinary program has 0.
constexpr int OOM_SCORE = 500;

void setLimit(__rlimit_resource resource, rlim_t value, const char* what) {
    rlimit limit{};
    (void)getrlimit(resource, &limit);
    limit.rlim_max = std::min(limit.rlim_max, value);
    limit.rlim_cur = limit.rlim_max;
    if (setrlimit(resource, &limit) != 0) {
        std::fprintf(stderr, "engine: no limit for %s\n", what);
    }
}

// The memory of this process in bytes: "VmData" is the private writable part, as
// RLIMIT_DATA counts it, "VmSize" all addresses. The amounts mapped at the start differ by
// orders of magnitude between builds.
rlim_t inUse(const std::string& kind) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind(kind + ":", 0) == 0) {
            return rlim_t{std::stoull(line.substr(kind.size() + 1))} * 1024;
        }
    }
    return 0;
}

} // namespace

void limitForkServer() {
    setLimit(RLIMIT_CORE, 0, "core dumps");
    setLimit(RLIMIT_FSIZE, FILE_SIZE, "file sizes");
    setLimit(RLIMIT_DATA, inUse("VmData") + FORK_SERVER_MEMORY, "memory");
    setLimit(RLIMIT_NOFILE, DESCRIPTORS, "descriptors");
    if (!(std::ofstream("/proc/self/oom_score_adj") << OOM_SCORE << std::flush)) {
        std::fprintf(stderr, "engine: does not go first when memory runs out\n");
    }
}

void limitProcessesOfNamespace() {
    setLimit(RLIMIT_NPROC, PROCESSES, "threads");
}

void limitEngine() {
    setLimit(RLIMIT_DATA, inUse("VmData") + MEMORY, "memory");
    setLimit(RLIMIT_AS, inUse("VmSize") + ADDRESSES, "addresses");
    setLimit(RLIMIT_CPU, SECONDS_OF_PROCESSOR, "processor time");
}

} // namespace lectern::engine
