// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzedService.h"

#include "channel/ServiceQueue.h"
#include "service/MethodTables.h"
#include "service/Opening.h"
#include "service/Registry.h"
#include "tests/fakes/hub/FakeHub.h"

#include <sched.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr int WIDTH = 64;
constexpr int HEIGHT = 96;
constexpr int FRAME_BYTES = WIDTH * HEIGHT * 4;
constexpr size_t STATE_BYTES = 28;

std::vector<std::pair<std::string, std::string>>& methods() {
    static std::vector<std::pair<std::string, std::string>> all;
    return all;
}

void addCategory(const char* category, const HubMethod* table) {
    fakeHub.categories.emplace_back(category, table);
    for (const HubMethod* method = table; method->name != nullptr; ++method) {
        methods().emplace_back(category, method->name);
    }
}

// Creates a segment with an identifier that the service accepts for a state segment.
int makeSegment(size_t size) {
    int id = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    while (id >= 0 && id < 4096) {
        shmctl(id, IPC_RMID, nullptr);
        id = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    }
    return id;
}

} // namespace

void startFuzzedService() {
    if (unshare(CLONE_NEWIPC | (geteuid() == 0 ? 0 : CLONE_NEWUSER)) != 0 ||
        std::freopen("/dev/null", "w", stdout) == nullptr) {
        std::perror("fuzz");
        std::exit(1);
    }
    pthread_mutex_init(&gDocumentsMutex, nullptr);
    g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID);
    addCategory("/common", commonMethods);
    addCategory("/events", eventMethods);
    addCategory("/word", wordMethods);
    addCategory("/excel", excelMethods);
    addCategory("/ppt", pptMethods);
    addCategory("/touch", touchMethods);
}

FuzzedDocument::FuzzedDocument(const uint8_t* state, size_t stateSize, unsigned kind)
    : mFrame(makeSegment(FRAME_BYTES)), mState(stateSize < STATE_BYTES ? 0 : makeSegment(STATE_BYTES)) {
    constexpr const char* NAMES[KINDS] = {"rows-2000.docx", "a.xlsx", "a.pptx"};
    writeState(state, stateSize);
    char payload[256];
    std::snprintf(payload, sizeof payload,
                  R"({"filename":"%s","width":%d,"height":%d,"shmid":"%d","size":%d,"datastoreshmid":"%d"})",
                  NAMES[kind], WIDTH, HEIGHT, mFrame, FRAME_BYTES, mState);
    fakeHub.call("/events", "create", payload);
}

FuzzedDocument::~FuzzedDocument() {
    for (size_t docid = gDocuments.size(); docid-- > 0;) {
        doDestroy(static_cast<int>(docid));
    }
    stopOpenings();
    shmctl(mFrame, IPC_RMID, nullptr);
    if (mState != 0) {
        shmctl(mState, IPC_RMID, nullptr);
    }
    g_msgQueue.Drain();
}

void FuzzedDocument::writeState(const uint8_t* state, size_t stateSize) const {
    if (mState == 0 || stateSize < STATE_BYTES) {
        return;
    }
    void* record = shmat(mState, nullptr, 0);
    std::memcpy(record, state, STATE_BYTES);
    shmdt(record);
}

std::string anyPayload(unsigned x, unsigned y) {
    return R"({"docid":0,"search":"a","column":"/dev/null","mode":"on","orientation":"left","chr":13,)"
           R"("modifiers":0,"xCoord":)" +
           std::to_string(x) + R"(,"yCoord":)" + std::to_string(y) + R"(,"sheet":)" + std::to_string(x % 4) +
           R"(,"slide":)" + std::to_string(x % 4) + R"(,"wideMode":)" + (y % 2 == 0 ? "true" : "false") + "}";
}

void callMethod(size_t number, const std::string& payload) {
    const auto& [category, method] = methods()[number % methods().size()];
    fakeHub.call(category, method, payload.c_str());
}
