// SPDX-License-Identifier: Apache-2.0
// What the service and its clients share: the two records that cross the
// System V message queue, the queue itself and a mutex guard.
//
// A record's text is what follows its type: 20 bytes to the service, 12 bytes
// back, laid out on 4-byte boundaries, little-endian. The type is a long and so
// wider on 64-bit systems; the text is not, and 32- and 64-bit ends interoperate.
#pragma once

#include <pthread.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

// Types of client records. They double as priorities: the service takes the
// lowest waiting type first.
enum ClientMessageType : long {
    _PAINT = 1,
    _KEY_DOWN = 2,
    _KEY_UP = 3,
    _PEN_DOWN = 4,
    _PEN_UP = 5,
    _PEN_MOVE = 6,
    _GESTURE_START = 7,
    _GESTURE_CHANGE = 8,
    _GESTURE_END = 9,
    _WIDE_MODE = 10,
};

// What a record to the client tells.
enum ClientMessageId : int32_t {
    _INVALIDATED = 0,     // the view needs a paint
    _HYPERLINK = 1,       // a tap on a link in a word-processing document
    _COMMENT_TAPPED = 2,  // a tap on a cell that has a comment
    _CLICK_UNUSED = 3,    // the view had no use for a click
    _COLUMN_SELECTED = 4, // one column of a sheet
    _TRACKS_SELECTED = 5, // a row of a sheet, or more than one row or column
    _TRACK_RESIZED = 6,   // a column or row of a sheet, or a stroke for it that ended where it began
    _SLIDE_CHANGED = 7,   // value: the slide now shown, from 0
    _OPENED = 8,          // value: docid, extra: 0 or the module's code
    _PAINT_DONE = 9,      // value: 0, or -4 for a document that does not exist
};

#pragma pack(push, 4)

// Client to service. The two doubles of gesture records lie over x, y and the
// tail; they are copied in and out because they may be unaligned.
struct ClientServerMessage {
    long type;
    int32_t docid;
    int32_t x;
    int32_t y;
    unsigned char tail[8];

    // The tail stays as it is: only gesture records use it.
    ClientServerMessage() : ClientServerMessage(0, 0) {}
    ClientServerMessage(long messageType, int32_t id) : type(messageType), docid(id), x(0), y(0) {}

    double firstReal() const { return real(0); }
    double secondReal() const { return real(1); }
    void setReals(double first, double second) {
        std::memcpy(arguments(), &first, sizeof first);
        std::memcpy(arguments() + sizeof first, &second, sizeof second);
    }
    // The flag of a wide-mode record is the first byte of x.
    bool flag() const { return *arguments() != 0; }
    void setFlag(bool on) { *arguments() = on ? 1 : 0; }

    static constexpr size_t TEXT_SIZE = 20;

private:
    unsigned char* arguments() { return reinterpret_cast<unsigned char*>(this) + sizeof(long) + 4; }
    const unsigned char* arguments() const {
        return reinterpret_cast<const unsigned char*>(this) + sizeof(long) + 4;
    }
    double real(size_t index) const {
        double value;
        std::memcpy(&value, arguments() + index * sizeof value, sizeof value);
        return value;
    }
};

// Service to client. The type is the addressee: docid + 101 for paint-done,
// the view's data-store segment identifier for everything else.
struct ServerClientMessage {
    long type;
    ClientMessageId id;
    int32_t value;
    int32_t extra;

    ServerClientMessage() : ServerClientMessage(0, _INVALIDATED) {}
    ServerClientMessage(long messageType, ClientMessageId messageId)
        : type(messageType), id(messageId), value(0), extra(0) {}

    static constexpr size_t TEXT_SIZE = 12;
};

#pragma pack(pop)

static_assert(sizeof(ClientServerMessage) == sizeof(long) + ClientServerMessage::TEXT_SIZE);
static_assert(sizeof(ServerClientMessage) == sizeof(long) + ServerClientMessage::TEXT_SIZE);
static_assert(offsetof(ClientServerMessage, docid) == sizeof(long));
static_assert(offsetof(ClientServerMessage, tail) == sizeof(long) + 12);
static_assert(offsetof(ServerClientMessage, extra) == sizeof(long) + 8);

// The machine's document-adapter queue: key ftok("/tmp", PROJECT_ID).
//
// Calls are atomic per message and threads may share one object; the counters
// are for information only. The queue itself outlives every object until
// somebody removes it. A call that finds it gone closes the object: isOpen()
// is false from then on.
//
// A failed read or send leaves one line on standard error and its cause in errno.
class DocAdapterMessageQueue {
public:
    static constexpr unsigned int TIMEOUT_INFINITE = 0xFFFFFFFFu;
    // What both ends open the queue with: IPC_CREAT, read and write for everybody.
    static constexpr int OPEN_FLAGS = 950;
    static constexpr char PROJECT_ID = 79;
    // The highest type of a client record; everything above is output of the service.
    static constexpr long HIGHEST_CLIENT_TYPE = 99;
    // The service reads this type: the lowest waiting of 99 and below.
    static constexpr long ANY_CLIENT_MESSAGE = -HIGHEST_CLIENT_TYPE;
    // Paint-done records for a document are addressed to docid + this.
    static constexpr long PAINT_DONE_BASE = 101;

    // 0, or the error number after a line on standard error.
    int Open(int flags, char project);
    // Throws away everything that waits, whatever its size; ENODEV when not open.
    int Drain();
    // Removes the queue from the system; 0, or the error number with the queue
    // still open. Safe in a signal handler.
    int Remove();
    bool isOpen() const { return mQueueId != NOT_OPEN; }

    // The service's read: blocks for a record of this type (negative: of its
    // absolute value or lower). A longer record is ignored and a shorter one
    // filled with zeros, as in every read. Bytes read, or -1.
    long ReadMessage(long type, ClientServerMessage& message);
    // The client's read. Waits in steps of 10 ms, counted and not timed: a
    // time-out of 25 ms gives three tries and three sleeps. Bytes read, or -1.
    long ReadMessage(long type, ServerClientMessage& message, unsigned int timeoutMs);
    // Sends that block while the queue is full: 0, or -1. Types below 1 cannot be sent.
    int SendMessage(const ServerClientMessage& message);
    int SendMessage(const ClientServerMessage& message);

    // The result of asking the system for the queue's status; the text is ignored.
    int trace_msg_queue(const char* text);

    int messagesRead() const { return mMessagesRead; }
    int messagesSent() const { return mMessagesSent; }

protected:
    static constexpr int NOT_OPEN = -1;

    // Reports errno, closes the object when the queue `id` is gone; -1.
    int fail(const char* what, int id);

    std::atomic<int> mQueueId{NOT_OPEN};
    std::atomic<int> mMessagesRead{0};
    std::atomic<int> mMessagesSent{0};

private:
    template<typename Record>
    int send(const Record& message);
};

// Holds a mutex until it goes out of scope.
class MutexLock {
public:
    MutexLock() = default;
    ~MutexLock();
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

    // Locks a mutex; its result, after a message on standard error when it is
    // not 0. REQUIRES: mutex is not null, and this guard holds none so far.
    int lock(pthread_mutex_t* mutex);

private:
    pthread_mutex_t* mMutex = nullptr;
};
