// SPDX-License-Identifier: Apache-2.0
#include "tests/process/liar/Session.h"

#include "channel/ServiceQueue.h"
#include "service/MethodTables.h"
#include "service/Registry.h"
#include "service/RenderWorker.h"
#include "tests/fakes/hub/FakeHub.h"
#include "tests/fakes/liar/Lies.h"

#include <sched.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>
#include <vector>

namespace lectern::test {
namespace {

constexpr int WIDTH = 320;
constexpr int HEIGHT = 480;
constexpr int FRAME_BYTES = WIDTH * HEIGHT * 4;
constexpr const char* KINDS[] = {"docx", "xlsx", "pptx"};
constexpr int DOCUMENTS = static_cast<int>(std::size(KINDS));
constexpr int STEPS = 60;

struct Method {
    std::string category;
    std::string name;
};

std::vector<Method>& methods() {
    static std::vector<Method> all;
    return all;
}

void addCategory(const char* category, const HubMethod* table) {
    fakeHub.categories.emplace_back(category, table);
    for (const HubMethod* method = table; method->name != nullptr; ++method) {
        const std::string name = method->name;
        if (name != "create" && name != "destroy") {
            methods().push_back({category, name});
        }
    }
}

std::string payloadFor(int docid, Choices& choices) {
    const auto number = [&] { return std::to_string(static_cast<int32_t>(choices.number())); };
    const std::string small = std::to_string(choices.below(4));
    return R"({"docid":)" + std::to_string(docid) + R"(,"search":"a","column":"/dev/null","mode":"on",)" +
           R"("orientation":"left","wideMode":)" + (choices.below(2) == 0 ? "true" : "false") +
           R"(,"xCoord":)" + number() + R"(,"yCoord":)" + number() + R"(,"sheet":)" + small + R"(,"slide":)" +
           small + R"(,"chr":13,"modifiers":0,"x":)" + number() + R"(,"y":)" + number() + R"(,"entry":)" +
           small + R"(,"zoom":)" + small + R"(.25,"unit":")" + (choices.below(2) == 0 ? "word" : "line") +
           (choices.below(2) == 0 ? R"("})" : R"(","end":"end"})");
}

void callSomething(int docid, Choices& choices) {
    const Method& method = methods()[choices.below(static_cast<unsigned>(methods().size()))];
    fakeHub.call(method.category, method.name, payloadFor(docid, choices).c_str());
}

void sendSomething(int docid, Choices& choices) {
    ClientServerMessage message(_PAINT + static_cast<long>(choices.below(_SCROLL_BY)), docid);
    if (message.type >= _GESTURE_START && message.type <= _GESTURE_END) {
        message.setReals(choices.below(40) / 10.0, 0);
    } else {
        message.x = static_cast<int32_t>(choices.below(256) * 2);
        message.y = static_cast<int32_t>(choices.below(256) * 3);
        message.setPinch(static_cast<float>(choices.below(40)) / 10.0F,
                         static_cast<int32_t>(choices.below(4)));
    }
    serveMessage(message);
}

void createDocument(const std::string& path, int frame, const char* manners) {
    char payload[512];
    std::snprintf(payload, sizeof payload,
                  R"({"filename":"%s","width":%d,"height":%d,"shmid":%d,"size":%d,"datastoreshmid":0,)"
                  R"("manners":"%s"})",
                  path.c_str(), WIDTH, HEIGHT, frame, FRAME_BYTES, manners);
    fakeHub.call("/events", "create", payload);
}

} // namespace

void startServiceWithLiars(const std::string& lyingEngine) {
    if (unshare(CLONE_NEWIPC | (geteuid() == 0 ? 0 : CLONE_NEWUSER)) != 0 ||
        std::freopen("/dev/null", "w", stdout) == nullptr) {
        std::perror("liars");
        std::exit(1);
    }
    setenv("LECTERN_ENGINE", lyingEngine.c_str(), 1);
    setenv("LECTERN_ENGINE_OPEN_LIMIT_MS", "5000", 1);
    setenv("LECTERN_ENGINE_CALL_LIMIT_MS", "100", 1);
    pthread_mutex_init(&gDocumentsMutex, nullptr);
    g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID);
    addCategory("/common", commonMethods);
    addCategory("/events", eventMethods);
    addCategory("/word", wordMethods);
    addCategory("/excel", excelMethods);
    addCategory("/ppt", pptMethods);
    addCategory("/touch", touchMethods);
}

void runSession(const std::string& folder, const std::string& bytes) {
    const int frame = shmget(IPC_PRIVATE, FRAME_BYTES, IPC_CREAT | 0600);
    Choices choices(bytes);
    for (int docid = 0; docid < DOCUMENTS; ++docid) {
        const std::string path = folder + "/lie." + KINDS[docid];
        // Each document's engine lies in another way.
        std::ofstream(path, std::ios::binary)
            << bytes.substr(bytes.size() * static_cast<size_t>(docid) / 3) << KINDS[docid];
        const bool touch = docid == 0 && choices.below(2) == 0;
        createDocument(path, frame, touch ? "touch" : "classic");
    }
    for (int step = 0; step < STEPS; ++step) {
        const int docid = static_cast<int>(choices.below(DOCUMENTS));
        choices.below(3) == 0 ? callSomething(docid, choices) : sendSomething(docid, choices);
        if (choices.below(2) == 0) {
            serveMessage(ClientServerMessage(_PAINT, docid));
        }
    }
    for (int docid = 0; docid < DOCUMENTS; ++docid) {
        doDestroy(docid);
    }
    shmctl(frame, IPC_RMID, nullptr);
    g_msgQueue.Drain();
}

} // namespace lectern::test
