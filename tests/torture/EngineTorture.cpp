// SPDX-License-Identifier: Apache-2.0
// Engines that are killed, stopped, left without memory and cut off while they work.
#include "tests/torture/TortureFixture.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <functional>
#include <iterator>
#include <thread>

// Older C libraries do not declare these as C functions.
extern "C" {
#include <sys/pidfd.h>
}

namespace {

using std::chrono::milliseconds;

constexpr int ENGINE_SOCKET = 3; // of an engine's connection

void kill(pid_t engine) {
    ::kill(engine, SIGKILL);
}
void crash(pid_t engine) {
    ::kill(engine, SIGSEGV);
}
void stop(pid_t engine) {
    ::kill(engine, SIGSTOP);
}
void leaveWithoutMemory(pid_t engine) {
    const rlimit none{0, 0};
    prlimit(engine, RLIMIT_DATA, &none, nullptr);
}
void cutOff(pid_t engine) {
    const int process = pidfd_open(engine, 0);
    const int connection = pidfd_getfd(process, ENGINE_SOCKET, 0);
    shutdown(connection, SHUT_RDWR);
    close(connection);
    close(process);
}

struct Fault {
    const char* name;
    void (*happen)(pid_t engine);
};
constexpr Fault FAULTS[] = {{"killed", kill},
                            {"crashed", crash},
                            {"stopped", stop},
                            {"without memory", leaveWithoutMemory},
                            {"cut off", cutOff}};

// What a client does with the document meanwhile; the service answers all of it.
using Call = std::function<void(TestDocument&)>;
const std::vector<Call>& calls() {
    static const std::vector<Call> all = {
        [](TestDocument& document) { document.pinch(1.7); },
        [](TestDocument& document) { document.doubleTap(200, 300); },
        [](TestDocument& document) { document.call("/common", "Search", R"(,"search":"the")"); },
        [](TestDocument& document) { document.drag(500); },
        [](TestDocument& document) { document.call("/common", "getDocProperties"); },
        [](TestDocument& document) { document.tap(240, 400); },
        [](TestDocument& document) { document.call("/word", "wideMode", R"(,"wideMode":true)"); },
        [](TestDocument& document) { document.call("/excel", "getSheetList"); },
        [](TestDocument& document) { document.call("/excel", "jumpToSheet", R"(,"sheet":1)"); },
        [](TestDocument& document) { document.call("/ppt", "getSlideList"); },
        [](TestDocument& document) { document.call("/ppt", "jumpToSlide", R"(,"slide":1)"); },
    };
    return all;
}

class EngineTorture : public TortureTest {
protected:
    void SetUp() override {
        // Short limits, because each stopped engine is waited for.
        setenv("LECTERN_ENGINE_CALL_LIMIT_MS", "1000", 1);
        TortureTest::SetUp();
    }
    // The engine that is not among the earlier ones; 0 without one.
    static pid_t newEngine(const std::vector<pid_t>& earlier) {
        for (const pid_t engine : descendants("lectern-engine")) {
            if (std::count(earlier.begin(), earlier.end(), engine) == 0) {
                return engine;
            }
        }
        return 0;
    }
    // Lets a fault happen while a document is used; returns whether it opened before.
    bool torture(const Fault& fault, const std::string& path, WatchedDocuments& others) {
        const std::vector<pid_t> earlier = descendants("lectern-engine");
        TestDocument victim(*client, *queue, path, 480, 800);
        const pid_t engine = newEngine(earlier);
        if (victim.openResult() != 0 || engine == 0) {
            return false;
        }
        victim.paint();
        const milliseconds moment(below(30));
        std::vector<Call> chosen;
        std::sample(calls().begin(), calls().end(), std::back_inserter(chosen), 3, random);
        std::atomic<bool> used = false;
        std::thread happening([&] {
            std::this_thread::sleep_for(moment);
            fault.happen(engine);
        });
        std::thread user([&] {
            for (const Call& call : chosen) {
                call(victim);
            }
            used = true;
        });
        while (!used) {
            others.look(victim.store());
        }
        happening.join();
        user.join();
        victim.paint();
        return true;
    }
};

TEST_F(EngineTorture, KilledStoppedFilledAndCutOffEnginesCostTheirDocumentAlone) {
    WatchedDocuments others(*client, *queue, tours());
    const int wanted = amount(25, 1000);
    const std::vector<std::string> paths = tours();
    int done = 0;
    for (int i = 0; i < wanted; ++i) {
        const Fault& fault = FAULTS[static_cast<size_t>(i) % std::size(FAULTS)];
        done += torture(fault, paths[below(static_cast<unsigned>(paths.size()))], others) ? 1 : 0;
        expectAlive();
    }
    EXPECT_EQ(others.changed(), 0);
    EXPECT_EQ(done, wanted) << "documents that did not open";
    addRow("engines", std::to_string(done) + " killed, crashed, stopped, without memory or cut off in a call",
           "service alive; " + std::to_string(others.changed()) + " pictures of others changed; " +
               others.times());
    others.close();
    expectServing();
}

} // namespace
