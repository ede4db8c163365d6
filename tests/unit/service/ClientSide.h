// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ServiceTest.h"

#include <sys/shm.h>

#include <string>

// A client's frame-buffer segment, attached by the client too, and removed on
// destruction. As a client should, it does not use identifier 0, which means no segment.
class ClientFrame {
public:
    explicit ClientFrame(int size) : ClientFrame(size, make(size)) {}
    ClientFrame(int size, int segment)
        : mSize(size), mId(segment), mBytes(static_cast<unsigned char*>(shmat(mId, nullptr, 0))) {}
    ~ClientFrame() {
        shmdt(mBytes);
        shmctl(mId, IPC_RMID, nullptr);
    }
    ClientFrame(const ClientFrame&) = delete;
    ClientFrame& operator=(const ClientFrame&) = delete;

    int id() const { return mId; }
    int size() const { return mSize; }
    unsigned char status() const { return mBytes[mSize - 1]; }
    void setStatus(unsigned char value) { mBytes[mSize - 1] = value; }
    unsigned int pixel(int index) const { return reinterpret_cast<unsigned int*>(mBytes)[index]; }
    unsigned long attachments() const {
        shmid_ds state = {};
        shmctl(mId, IPC_STAT, &state);
        return state.shm_nattch;
    }

    static int make(int size) {
        const int segment = shmget(IPC_PRIVATE, static_cast<size_t>(size), IPC_CREAT | 0600);
        if (segment != 0) {
            return segment;
        }
        shmctl(segment, IPC_RMID, nullptr); // the next segment has another identifier
        return make(size);
    }

private:
    int mSize;
    int mId;
    unsigned char* mBytes;
};

// Tests that open documents in the fake word module through the bus.
class ClientSideTest : public ServiceTest {
protected:
    static constexpr int WIDTH = 320;
    static constexpr int HEIGHT = 480;
    static constexpr int SIZE = WIDTH * HEIGHT * 4;

    // The payload of a "create" without its braces.
    static std::string payloadOf(const std::string& fileName, const ClientFrame& frame, int width = WIDTH,
                                 int height = HEIGHT, const std::string& dataStore = "0") {
        return R"("filename": ")" + fileName + R"(", "width": )" + std::to_string(width) + R"(, "height": )" +
               std::to_string(height) + R"(, "shmid": )" + std::to_string(frame.id()) + R"(, "size": )" +
               std::to_string(frame.size()) + R"(, "datastoreshmid": )" + dataStore;
    }
    std::optional<std::string> create(const std::string& members) {
        return call("/events", "create", "{" + members + "}");
    }
    std::optional<std::string> create(const std::string& fileName, const ClientFrame& frame) {
        return create(payloadOf(fileName, frame));
    }
    // Calls "create" and expects the reply to name this document.
    void expectCreated(int docid, const std::string& members) {
        const auto reply = create(members);
        ASSERT_TRUE(DocumentExists(static_cast<unsigned int>(docid)));
        EXPECT_EQ(reply, replyFor(docid));
    }
    void expectCreated(int docid, const std::string& fileName, const ClientFrame& frame) {
        expectCreated(docid, payloadOf(fileName, frame));
    }
    // "destroy" never sends a reply.
    void destroy(int docid) {
        EXPECT_EQ(call("/events", "destroy", R"({"docid": )" + std::to_string(docid) + "}"), std::nullopt);
    }
    static unsigned int dataStoreOf(int docid) {
        return gDocuments.at(static_cast<size_t>(docid)).view->dataStoreShmId();
    }
    static std::string replyFor(int docid) {
        return R"({ "docid": )" + std::to_string(docid) + R"(, "doctype": 2, "datastoreshmid": ")" +
               std::to_string(dataStoreOf(docid)) + R"(" })";
    }
};
