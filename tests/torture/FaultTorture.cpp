// SPDX-License-Identifier: Apache-2.0
// Every allocation and system call of the service's own code fails once, one after the
// other, while a document is opened, painted, searched and closed.
#include "tests/torture/FailingCalls.h"
#include "tests/torture/TortureFixture.h"

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/mman.h>
#include <sys/shm.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <set>

namespace {

constexpr int WIDTH = 320;
constexpr int HEIGHT = 480;
constexpr int FRAME_BYTES = WIDTH * HEIGHT * 4;
constexpr int MOST_CALLS = 400; // of one operation

class FaultTorture : public TortureTest {
protected:
    void SetUp() override {
        TortureTest::SetUp();
        stopService();
        service.reset();
        const std::string path = folder.path() + "/faults";
        const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        ASSERT_EQ(ftruncate(file, sizeof(FaultControl)), 0);
        control = static_cast<FaultControl*>(
            mmap(nullptr, sizeof(FaultControl), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0));
        close(file);
        startWithFaults();
        frame = shmget(IPC_PRIVATE, FRAME_BYTES, IPC_CREAT | 0600);
    }
    void TearDown() override {
        shmctl(frame, IPC_RMID, nullptr);
        munmap(control, sizeof(FaultControl));
        TortureTest::TearDown();
    }

    void startWithFaults() {
        const std::string preloaded = serviceEnvironment()["LD_PRELOAD"] + ":" + FAULT_LIBRARY;
        startService({{"LD_PRELOAD", preloaded}, {"LECTERN_TEST_FAULTS", folder.path() + "/faults"}});
    }
    // Whether records are still served: a failed answer to a paint ends the worker.
    bool workerServes() {
        constexpr int NO_DOCUMENT = 9999;
        queue->post(1, NO_DOCUMENT);
        return eventually([&] { return queue->poll(NO_DOCUMENT + 101).id == 9; });
    }

    // Runs an operation once for each of its calls, which fails. The service must go on.
    void failEachCall(const std::string& name, const std::function<void()>& before,
                      const std::function<std::string()>& operation, const std::function<void()>& after) {
        std::set<std::string> kinds;
        int errors = 0;
        int faults = 0;
        int ended = 0; // workers
        for (int n = 1; n <= MOST_CALLS; ++n) {
            before();
            control->happened = false;
            control->callsUntilFault = n;
            const std::string answer = operation();
            control->callsUntilFault = 0;
            ASSERT_NO_FATAL_FAILURE(expectAlive()) << name << ": call " << n << ", " << control->call;
            after();
            if (!control->happened) {
                break;
            }
            ++faults;
            kinds.insert(control->call);
            if (!workerServes()) {
                ++ended;
                EXPECT_EQ(control->call, std::string("msgsnd")) << name << ": call " << n;
                stopService();
                service.reset();
                startWithFaults();
            }
            errors += answer.find("error") != std::string::npos ? 1 : 0;
            ASSERT_NO_FATAL_FAILURE(expectServing()) << name << ": call " << n << ", " << control->call;
        }
        EXPECT_LT(faults, MOST_CALLS) << name;
        std::string list;
        for (const std::string& kind : kinds) {
            list += (list.empty() ? "" : ", ") + kind;
        }
        addRow("failing calls",
               name + ": each of " + std::to_string(faults) + " calls failed once (" + list + ")",
               "service alive; " + std::to_string(errors) + " reported as errors, " +
                   (ended > 0 ? std::to_string(ended) + " ended the worker as defined, " : "") +
                   "the rest without effect");
    }

    // Returns the reply; the document's number is in `docid`, -1 without one.
    std::string create(const std::string& file) {
        const std::string reply =
            client
                ->call("/events", "create",
                       R"({"filename":")" + sample(file) + R"(","width":)" + std::to_string(WIDTH) +
                           R"(,"height":)" + std::to_string(HEIGHT) + R"(,"shmid":)" + std::to_string(frame) +
                           R"(,"size":)" + std::to_string(FRAME_BYTES) + R"(,"datastoreshmid":0})")
                .text;
        const size_t at = reply.find("\"docid\": ");
        docid = at == std::string::npos ? -1 : std::atoi(reply.c_str() + at + 9);
        if (docid >= 0) {
            const std::string store = "\"datastoreshmid\": \"";
            address = std::atol(reply.c_str() + reply.find(store) + store.size());
            // The code of the open, if the record could be sent at all.
            Answer opened;
            eventually([&] { return address < 100 || (opened = queue->poll(address)).id == 8; }, 500);
            return opened.extra == 0 && opened.id == 8 ? reply : "error " + reply;
        }
        return reply.empty() ? "error: no reply" : reply;
    }
    void destroy() {
        if (docid >= 0) {
            client->call("/events", "destroy", "{\"docid\":" + std::to_string(docid) + "}");
            docid = -1;
        }
    }
    std::string paintAnew() {
        queue->postGesture(7, docid, 1.0);
        queue->postGesture(9, docid, 1.3);
        queue->post(3, docid);
        queue->post(1, docid);
        Answer done;
        const bool answered = eventually(
            [&] {
                queue->poll(address);
                return (done = queue->poll(docid + 101)).id == 9;
            },
            2000);
        return answered && done.extra == 0 ? "painted" : "error";
    }

    FaultControl* control = nullptr;
    int frame = -1;
    int docid = -1;
    long address = 0;
};

TEST_F(FaultTorture, EachCallFailsOnceAtOpenPaintSearchAndDestroy) {
    const auto nothing = [] {};
    const auto close = [this] { destroy(); };
    for (const char* file : {"tour.docx", "tour.xlsx", "tour.pptx"}) {
        const auto openIt = [this, file] { create(file); };
        const std::string of = std::string(" of ") + file;
        failEachCall(
            "open" + of, nothing, [&] { return create(file); }, close);
        failEachCall(
            "zoom and paint" + of, openIt, [this] { return paintAnew(); }, close);
        if (amount(0, 1) == 0) {
            return; // the other kinds share most of the code
        }
        failEachCall(
            "search" + of, openIt,
            [this] {
                return client
                    ->call("/common", "Search", "{\"docid\":" + std::to_string(docid) + R"(,"search":"a"})")
                    .text;
            },
            close);
        failEachCall(
            "destroy" + of, openIt,
            [this] {
                destroy();
                return std::string();
            },
            nothing);
    }
    failEachCall(
        "open without a fork server",
        [this] {
            for (const pid_t server : descendants("lectern-forksrv")) {
                kill(server, SIGKILL);
            }
        },
        [this] { return create("tour.docx"); }, close);
}

} // namespace
