// SPDX-License-Identifier: Apache-2.0
// A client written from the documented formats: it shares no code with the
// service or the client library, so that it checks both.
#pragma once

#include "tests/system/support/Bus.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

// A record from the service, without its type.
struct Answer {
    int32_t id = -1;
    int32_t value = 0;
    int32_t extra = 0;
};

// The client's end of the System V queue.
class Queue {
public:
    Queue();
    // Posts a record with two integer arguments; returns false when the queue
    // is full or removed.
    bool post(long type, int32_t docid, int32_t x = 0, int32_t y = 0);
    bool postGesture(long type, int32_t docid, double scale);
    // Posts a text of any size.
    bool postRaw(long type, const std::vector<unsigned char>& text);
    // Waits for a record of this type.
    Answer read(long type);
    // The next waiting record of this type; its id is -1 when there is none.
    Answer poll(long type);
    // Waits until the service has taken every client record. Meanwhile reads the
    // records for `store` and returns their ids. Paints and pen ups overtake pen
    // moves, so a test that needs an order must call this in between.
    std::set<int> settle(long store);
    // The same without reading records.
    void awaitTaken();

    int id() const { return mId; }

private:
    bool hasClientRecord();
    Answer receive(long type, int flags);
    int mId;
};

// A document opened over the bus, with a frame buffer and its state record.
class TestDocument {
public:
    struct Options {
        std::string password{};
        unsigned int dataStore = 0;
        std::string touchKind{}; // not empty: with touch manners, as a document of this kind
        bool awaitsOpen = true;  // else the caller does, by awaitOpened()
    };
    TestDocument(BusConnection& bus, Queue& queue, const std::string& path, int width, int height,
                 const Options& options);
    TestDocument(BusConnection& bus, Queue& queue, const std::string& path, int width, int height)
        : TestDocument(bus, queue, path, width, height, Options()) {}
    ~TestDocument();
    TestDocument(const TestDocument&) = delete;
    TestDocument& operator=(const TestDocument&) = delete;

    // Waits until the open has ended; returns its result. For after the constructor.
    int awaitOpened();
    // The percentages of progress that came before the end of the open.
    const std::vector<int>& progress() const { return mProgress; }

    int docid() const { return mDocid; }
    long store() const { return mStore; }
    int openResult() const { return mOpened.extra; }
    const std::string& reply() const { return mReply; }
    const uint32_t* frame() const { return mFrame; }
    const unsigned char* frameBytes() const { return reinterpret_cast<const unsigned char*>(mFrame); }
    int width() const { return mWidth; }
    int height() const { return mHeight; }

    // Requests a paint and waits for it; returns the value of the answer.
    int paint();
    void penDown(int x, int y) { send(4, x, y); }
    void penUp(int x, int y) { send(5, x, y); }
    void penMove(int x, int y) { send(6, x, y); }
    // Makes the next paint request paint again, by a key that no view uses.
    void touch() { send(3, 0, 0); }
    // One contact that moves the document down by `rows` (up if negative) in
    // steps, and a paint.
    void drag(int rows);
    void pinch(double scale);
    void doubleTap(int x, int y);
    void destroy();

    int scrollX() const { return state(0); }
    int scrollY() const { return state(4); }
    double scale() const;
    // The whole record, of 28 bytes.
    const unsigned char* state() const { return mState; }
    // The first character of the stretch that a word-processing view keeps painted.
    int stretchCharacter() const { return state(20); }
    // The slide that a presentation shows, from 0.
    int slide() const { return state(24); }
    // Calls a method with this document's number and more members, given as ",
    // \"key\": value"; paints, and returns the reply. Drops earlier
    // notifications.
    std::string call(const std::string& category, const std::string& method, const std::string& more = "");
    void tap(int x, int y);
    // The payload {"docid": N} of most methods.
    std::string docidPayload() const { return "{\"docid\":" + std::to_string(mDocid) + "}"; }

private:
    void send(long type, int x, int y);
    int32_t state(int offset) const;
    BusConnection& mBus;
    Queue& mQueue;
    int mWidth;
    int mHeight;
    int mSegment = -1;
    uint32_t* mFrame = nullptr;
    const unsigned char* mState = nullptr;
    int mDocid = -1;
    long mStore = 0;
    std::string mReply;
    std::vector<int> mProgress;
    Answer mOpened;
};
