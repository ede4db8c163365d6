// SPDX-License-Identifier: Apache-2.0
// A real engine that runs out of memory.
#include "tests/system/module/ModuleView.h"

#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace lectern::test {
namespace {

// The soft limit of a process's private writable memory; the one before comes
// back with this object's end.
class MemoryLimit {
public:
    MemoryLimit(pid_t pid, rlim_t bytes) : mPid(pid) {
        EXPECT_EQ(prlimit(pid, RLIMIT_DATA, nullptr, &mBefore), 0);
        const rlimit limit{bytes, mBefore.rlim_max};
        EXPECT_EQ(prlimit(pid, RLIMIT_DATA, &limit, nullptr), 0);
    }
    ~MemoryLimit() { EXPECT_EQ(prlimit(mPid, RLIMIT_DATA, &mBefore, nullptr), 0); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    pid_t mPid;
    rlimit mBefore{};
};

// As RLIMIT_DATA counts it.
rlim_t dataInUse(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmData:", 0) == 0) {
            return rlim_t{std::stoull(line.substr(line.find(':') + 1))} * 1024;
        }
    }
    return 0;
}

// The engine that paints: it maps the surface of the only open document.
pid_t paintingEngine() {
    for (const EngineInfo& engine : enginesOf(getpid())) {
        std::ifstream mappings("/proc/" + std::to_string(engine.pid) + "/maps");
        for (std::string line; std::getline(mappings, line);) {
            if (line.find("memfd:lectern-surface") != std::string::npos) {
                return engine.pid;
            }
        }
    }
    return 0;
}

TEST(ModuleMemory, ASuiteWithoutMemoryIsReportedAsTooLargeAndTheDocumentGoesOn) {
    // Text is painted in bands of about 512 rows: one of this width takes 32 MB,
    // and the second is first needed by the scroll.
    const ModuleView view(longDocument(5, "needle", 1), 16384, 100, 2400);
    const pid_t engine = paintingEngine();
    ASSERT_GT(engine, 0);
    std::int32_t scrolled = -1;
    {
        constexpr rlim_t LITTLE = rlim_t{8} << 20;
        const MemoryLimit limit(engine, dataInUse(engine) + LITTLE);
        EXPECT_EQ(wordModule().wtg_scroll_down(view.get(), 0, 600, &scrolled), MODULE_TOO_LARGE);
        EXPECT_EQ(scrolled, 0);
    }
    EXPECT_EQ(wordModule().wtg_scroll_down(view.get(), 0, 600, &scrolled), MODULE_OK);
    EXPECT_EQ(scrolled, 600);
}

} // namespace
} // namespace lectern::test
