// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/Client.h"

#include <gtest/gtest.h>
#include <json-c/json.h>
#include <sched.h>
#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/shm.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace {

int memberInt(const std::string& json, const char* key, int absent) {
    json_object* object = json_tokener_parse(json.c_str());
    json_object* value = nullptr;
    const int result =
        json_object_object_get_ex(object, key, &value) != 0 ? json_object_get_int(value) : absent;
    json_object_put(object);
    return result;
}

std::string createPayload(const std::string& path, int width, int height, int segment,
                          const TestDocument::Options& options) {
    json_object* payload = json_object_new_object();
    json_object_object_add(payload, "filename", json_object_new_string(path.c_str()));
    json_object_object_add(payload, "width", json_object_new_int(width));
    json_object_object_add(payload, "height", json_object_new_int(height));
    json_object_object_add(payload, "shmid", json_object_new_string(std::to_string(segment).c_str()));
    json_object_object_add(payload, "size", json_object_new_int(width * height * 4));
    json_object_object_add(payload, "datastoreshmid",
                           json_object_new_string(std::to_string(options.dataStore).c_str()));
    if (!options.password.empty()) {
        json_object_object_add(payload, "password", json_object_new_string(options.password.c_str()));
    }
    if (!options.touchKind.empty()) {
        json_object_object_add(payload, "manners", json_object_new_string("touch"));
        json_object_object_add(payload, "kind", json_object_new_string(options.touchKind.c_str()));
    }
    std::string text = json_object_to_json_string(payload);
    json_object_put(payload);
    return text;
}

// Creates a segment whose identifier is not 0, which means no segment in the protocol.
int makeSegment(size_t size) {
    const int first = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    if (first != 0) {
        return first;
    }
    const int second = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    shmctl(first, IPC_RMID, nullptr);
    return second;
}

} // namespace

Queue::Queue() : mId(msgget(ftok("/tmp", 79), IPC_CREAT | 0666)) {
    if (mId < 0) {
        throw std::runtime_error("no message queue");
    }
}

bool Queue::postRaw(long type, const std::vector<unsigned char>& text) {
    std::vector<unsigned char> record(sizeof type + text.size());
    std::memcpy(record.data(), &type, sizeof type);
    std::copy(text.begin(), text.end(), record.begin() + sizeof type);
    return msgsnd(mId, record.data(), text.size(), IPC_NOWAIT) == 0;
}

bool Queue::post(long type, int32_t docid, int32_t x, int32_t y) {
    std::vector<unsigned char> text(20);
    std::memcpy(&text[0], &docid, 4);
    std::memcpy(&text[4], &x, 4);
    std::memcpy(&text[8], &y, 4);
    return postRaw(type, text);
}

bool Queue::postGesture(long type, int32_t docid, double scale) {
    std::vector<unsigned char> text(20);
    std::memcpy(&text[0], &docid, 4);
    std::memcpy(&text[4], &scale, 8);
    return postRaw(type, text);
}

Answer Queue::receive(long type, int flags) {
    struct {
        long type;
        int32_t words[3];
    } record{};
    if (msgrcv(mId, &record, 12, type, flags) != 12) {
        return {};
    }
    return {record.words[0], record.words[1], record.words[2]};
}

Answer Queue::read(long type) {
    return receive(type, 0);
}
Answer Queue::poll(long type) {
    return receive(type, IPC_NOWAIT);
}

// The system refuses to cut a record that has a text, and leaves it in the queue.
bool Queue::hasClientRecord() {
    long type = 0;
    if (msgrcv(mId, &type, 0, -99, IPC_NOWAIT) == 0) {
        return msgsnd(mId, &type, 0, 0) == 0; // one without a text, which belongs to the service
    }
    return errno == E2BIG;
}

std::set<int> Queue::settle(long store) {
    const auto patience = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    std::set<int> ids;
    bool taken = false;
    while (!taken) {
        if (std::chrono::steady_clock::now() > patience) {
            ADD_FAILURE() << "nobody takes the records of the client";
            break;
        }
        taken = !hasClientRecord();
        for (Answer answer = poll(store); answer.id >= 0; answer = poll(store)) {
            ids.insert(answer.id);
        }
        sched_yield();
    }
    return ids;
}

void Queue::awaitTaken() {
    const auto patience = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (hasClientRecord()) {
        if (std::chrono::steady_clock::now() > patience) {
            ADD_FAILURE() << "nobody takes the records of the client";
            return;
        }
        sched_yield();
    }
}

TestDocument::TestDocument(BusConnection& bus, Queue& queue, const std::string& path, int width, int height,
                           const Options& options)
    : mBus(bus), mQueue(queue), mWidth(width), mHeight(height) {
    mSegment = makeSegment(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    mFrame = static_cast<uint32_t*>(shmat(mSegment, nullptr, 0));
    mReply = bus.call("/events", "create", createPayload(path, width, height, mSegment, options)).text;
    shmctl(mSegment, IPC_RMID, nullptr);
    mDocid = memberInt(mReply, "docid", -1);
    if (mDocid < 0) {
        return;
    }
    mStore = memberInt(mReply, "datastoreshmid", 0);
    mState = static_cast<const unsigned char*>(shmat(static_cast<int>(mStore), nullptr, SHM_RDONLY));
    if (options.awaitsOpen) {
        awaitOpened();
    }
}

int TestDocument::awaitOpened() {
    for (mOpened = mQueue.read(mStore); mOpened.id == 0 || mOpened.id == 12; mOpened = mQueue.read(mStore)) {
        if (mOpened.id == 12) {
            mProgress.push_back(mOpened.extra);
        }
    }
    return mOpened.extra;
}

TestDocument::~TestDocument() {
    if (mDocid >= 0) {
        destroy();
    }
    if (mState != nullptr) {
        shmdt(mState);
    }
    shmdt(mFrame);
}

void TestDocument::destroy() {
    mBus.call("/events", "destroy", docidPayload());
    mDocid = -1;
}

void TestDocument::send(long type, int x, int y) {
    mQueue.post(type, mDocid, x, y);
    mQueue.settle(mStore);
}

int TestDocument::paint() {
    mQueue.post(1, mDocid);
    const Answer done = mQueue.read(mDocid + 101);
    return done.id == 9 ? done.value : -1000;
}

void TestDocument::drag(int rows) {
    const int from = rows > 0 ? mHeight - 1 : 0;
    penDown(mWidth / 2, from);
    for (int step = 1; step <= 4; ++step) {
        penMove(mWidth / 2, from - rows * step / 4);
    }
    penUp(mWidth / 2, from - rows);
    paint();
    mBus.call("/events", "ping", "{}"); // only bus calls keep the service from stopping
}

void TestDocument::pinch(double scale) {
    mQueue.postGesture(7, mDocid, 1.0);
    mQueue.postGesture(8, mDocid, scale);
    mQueue.settle(mStore);
    paint();
    mQueue.postGesture(9, mDocid, scale);
    mQueue.settle(mStore);
    paint();
}

std::string TestDocument::call(const std::string& category, const std::string& method,
                               const std::string& more) {
    while (mQueue.poll(mStore).id >= 0) { // a client that never reads fills the queue
    }
    const std::string payload = "{\"docid\":" + std::to_string(mDocid) + more + "}";
    std::string reply = mBus.call(category, method, payload).text;
    paint();
    return reply;
}

void TestDocument::tap(int x, int y) {
    call("/events", "handleClick", ",\"xCoord\":" + std::to_string(x) + ",\"yCoord\":" + std::to_string(y));
}

void TestDocument::doubleTap(int x, int y) {
    call("/events", "handleDoubleClick",
         ",\"xCoord\":" + std::to_string(x) + ",\"yCoord\":" + std::to_string(y));
}

int32_t TestDocument::state(int offset) const {
    int32_t value;
    std::memcpy(&value, mState + offset, sizeof value);
    return value;
}

double TestDocument::scale() const {
    double value;
    std::memcpy(&value, mState + 8, sizeof value);
    return value;
}
