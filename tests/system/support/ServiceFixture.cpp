// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/ServiceFixture.h"

#include "tests/system/support/Python.h"

#include <sched.h>
#include <signal.h>
#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/prctl.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

// Gives this program its own namespace for System V objects, and makes orphaned
// descendants its children.
[[maybe_unused]] const bool isolated = [] {
    if (unshare(CLONE_NEWIPC | (geteuid() == 0 ? 0 : CLONE_NEWUSER)) != 0) {
        std::perror("unshare");
        std::exit(1);
    }
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    return true;
}();

// The engines' time limits are meant for hostile files. On a busy machine a
// test's long document may take longer, so the limits are raised; tests of
// limits set their own.
[[maybe_unused]] const bool patient = [] {
    setenv("LECTERN_ENGINE_OPEN_LIMIT_MS", "50000", 1);
    setenv("LECTERN_ENGINE_CALL_LIMIT_MS", "50000", 1);
    return true;
}();

int segmentsInUse() {
    shm_info info{};
    shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info));
    return info.used_ids;
}

// Returns whether orphans of the service end by themselves within some time.
bool allChildrenEnd() {
    return eventually([] {
        while (waitpid(-1, nullptr, WNOHANG) > 0) {
        }
        return waitpid(-1, nullptr, WNOHANG) < 0;
    });
}

int engineFolders() {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/tmp")) {
        const std::string name = entry.path().filename();
        if (name.rfind("lectern-engine-" + std::to_string(getpid()), 0) == 0) {
            ++count;
        }
    }
    return count;
}

} // namespace

void ServiceTest::SetUp() {
    bus = std::make_unique<PrivateBus>(folder.path());
    startService();
}

void ServiceTest::startService(const std::map<std::string, std::string>& environment) {
    std::map<std::string, std::string> merged = serviceEnvironment();
    for (const auto& [name, value] : environment) {
        merged[name] = value;
    }
    service = std::make_unique<Subprocess>(std::vector<std::string>{SERVICE_PROGRAM}, merged,
                                           folder.path() + "/service");
    client = std::make_unique<BusConnection>(bus->address());
    ASSERT_TRUE(client->waitForService(20000)) << service->errors();
    queue = std::make_unique<Queue>();
}

std::map<std::string, std::string> ServiceTest::serviceEnvironment() const {
    return {{"DBUS_SESSION_BUS_ADDRESS", bus->address()},
            {"LD_PRELOAD", SYSLOG_LIBRARY},
            {"LECTERN_TEST_SYSLOG", folder.path() + "/syslog"}};
}

int ServiceTest::stopService() {
    service->signal(SIGTERM);
    const std::optional<int> status = service->wait(std::chrono::seconds(20));
    EXPECT_TRUE(status.has_value()) << "the service does not end on SIGTERM";
    return status.value_or(-1);
}

void ServiceTest::TearDown() {
    client.reset();
    if (service) {
        stopService();
    }
    service.reset();
    bus.reset();
    EXPECT_TRUE(allChildrenEnd()) << "a process was left behind";
    EXPECT_EQ(segmentsInUse(), 0) << "a shared-memory segment was left behind";
    EXPECT_EQ(engineFolders(), 0) << "an engine left its folder behind";
    const int left = msgget(ftok("/tmp", 79), 0);
    if (left >= 0) {
        msgctl(left, IPC_RMID, nullptr);
    }
}

std::string ServiceTest::sample(const std::string& name) {
    return std::string(SAMPLES_FOLDER) + "/" + name;
}

std::string ServiceTest::generated(const std::string& name, const std::string& script,
                                   std::vector<std::string> arguments) const {
    const std::string path = folder.path() + "/" + name;
    if (!std::filesystem::exists(path)) {
        std::replace(arguments.begin(), arguments.end(), std::string("OUT"), path);
        arguments.insert(arguments.begin(), sample(script));
        python(arguments);
    }
    return path;
}

std::string ServiceTest::longDocument(int pages, const std::string& word, int hits) const {
    std::vector<std::string> arguments{std::to_string(pages), "OUT"};
    if (hits > 0) {
        arguments.insert(arguments.end(), {word, std::to_string(hits)});
    }
    return generated("long-" + std::to_string(pages) + "-" + std::to_string(hits) + ".docx",
                     "make_long_docx.py", arguments);
}

std::string ServiceTest::linkedDocument() const {
    return generated("linked.docx", "make_linked_docx.py", {"OUT"});
}

std::vector<pid_t> ServiceTest::descendants(const std::string& name) {
    std::vector<pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t pid = std::atoi(entry.path().filename().c_str());
        if (pid <= 0) {
            continue;
        }
        // Follows the parents in "pid (name) state parent ..." up to the test itself.
        std::string comm;
        bool runs = true;
        pid_t walk = pid;
        bool below = false;
        while (walk > 1) {
            const std::string stat = readFile("/proc/" + std::to_string(walk) + "/stat");
            const size_t open = stat.find('('), close = stat.rfind(')');
            if (close == std::string::npos) {
                break;
            }
            if (walk == pid) {
                comm = stat.substr(open + 1, close - open - 1);
                runs = stat[close + 2] != 'Z';
            }
            walk = std::atoi(stat.c_str() + close + 4);
            if (walk == getpid()) {
                below = true;
                break;
            }
        }
        if (below && runs && name.rfind(comm, 0) == 0 && !comm.empty()) {
            found.push_back(pid);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

bool eventually(const std::function<bool()>& condition, int limitMs) {
    for (int waited = 0; waited <= limitMs; waited += 10) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}
