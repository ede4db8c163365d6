// SPDX-License-Identifier: Apache-2.0
#include "ServiceTest.h"
#include "service/MethodTables.h"

#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/shm.h>

#include <cerrno>

void ServiceTest::SetUp() {
    fakeHub.reset();
    fakeHub.categories = {{"/common", commonMethods}, {"/events", eventMethods}, {"/word", wordMethods},
                          {"/excel", excelMethods},   {"/ppt", pptMethods},      {"/touch", touchMethods}};
    ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    ASSERT_EQ(g_msgQueue.Drain(), 0);
    systemCalls.takeLog();
    segmentsBefore = segments();
}

void ServiceTest::TearDown() {
    systemCalls.onSend = nullptr;
    systemCalls.onFrameAttach = nullptr;
    systemCalls.failingUnlock = nullptr;
    systemCalls.now = 0;
    gDocuments.clear();
    g_msgQueue.Remove();
    EXPECT_EQ(segments(), segmentsBefore) << "a segment was left behind";
}

int ServiceTest::addView(doctype_t kind) {
    const int docid = static_cast<int>(gDocuments.size());
    frames.resize(gDocuments.size() + 1);
    frames.back() = std::make_unique<std::vector<unsigned int>>(16, 0);
    Documents record;
    record.view = std::make_unique<RecordingView>(trace, static_cast<unsigned int>(addressOf(docid)), kind);
    record.buffer = frames.back()->data();
    record.status = reinterpret_cast<unsigned char*>(record.buffer) + 63;
    gDocuments.push_back(std::move(record));
    return docid;
}

std::vector<ServerClientMessage> ServiceTest::takeMessages(long addressee) {
    std::vector<ServerClientMessage> messages;
    const int id = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
    ServerClientMessage message;
    while (msgrcv(id, &message, ServerClientMessage::TEXT_SIZE, addressee, IPC_NOWAIT) >= 0) {
        messages.push_back(message);
    }
    return messages;
}

unsigned long ServiceTest::waiting() {
    msqid_ds status = {};
    msgctl(msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0), IPC_STAT, &status);
    return status.msg_qnum;
}

void ServiceTest::traceMessages() {
    for (size_t docid = 0; docid < gDocuments.size(); ++docid) {
        for (const ServerClientMessage& message : takeMessages(addressOf(static_cast<int>(docid)))) {
            EXPECT_EQ(message.value, 0);
            EXPECT_EQ(message.extra, 0);
            trace.push_back("message " + std::to_string(message.id));
        }
    }
}

std::vector<std::string> ServiceTest::traceOf(const std::string& category, const std::string& method,
                                              const std::string& payload) {
    trace.clear();
    fakeHub.onReply = [this](const std::string& text) {
        traceMessages();
        trace.push_back("reply " + text);
    };
    call(category, method, payload);
    fakeHub.onReply = nullptr;
    traceMessages();
    return trace;
}

bool ServiceTest::isHeld(pthread_mutex_t* mutex) {
    if (pthread_mutex_trylock(mutex) == EBUSY) {
        return true;
    }
    pthread_mutex_unlock(mutex);
    return false;
}

bool ServiceTest::registryIsHeld() {
    return isHeld(&gDocumentsMutex);
}

int ServiceTest::segments() {
    shm_info info = {};
    shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info));
    return info.used_ids;
}

StuckRegistry::StuckRegistry() {
    pthread_mutexattr_t checking;
    pthread_mutexattr_init(&checking);
    pthread_mutexattr_settype(&checking, PTHREAD_MUTEX_ERRORCHECK);
    pthread_mutex_destroy(&gDocumentsMutex);
    pthread_mutex_init(&gDocumentsMutex, &checking);
    pthread_mutexattr_destroy(&checking);
    pthread_mutex_lock(&gDocumentsMutex);
}

StuckRegistry::~StuckRegistry() {
    pthread_mutex_unlock(&gDocumentsMutex);
    pthread_mutex_destroy(&gDocumentsMutex);
    pthread_mutex_init(&gDocumentsMutex, nullptr);
}
