// SPDX-License-Identifier: Apache-2.0
// The code that the service and its clients share: the two records that cross the
// System V message queue, the queue itself and a mutex guard.
//
// A record's text is everything after its type: 20 bytes to the service, 12 bytes
// to the client, little-endian, aligned to 4 bytes. The type is a long, so its size
// differs between 32- and 64-bit programs. The text has the same layout in both,
// so they can exchange records.
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
    // Types above 10 are heard by touch views only.
    _PINCH = 11,     // the point between two fingers in view pixels, pinchFactor(), pinchPhase()
    _SCROLL_BY = 12, // a way in view pixels
};

// All phases of a pinch have one type, so the queue keeps their order.
enum PinchPhase : int32_t {
    _PINCH_BEGINS = 0,
    _PINCH_MOVES = 1,
    _PINCH_ENDS = 2,
    _PINCH_GIVEN_UP = 3, // the zoom is as before it
};

// The kinds of records to the client.
enum ClientMessageId : int32_t {
    _INVALIDATED = 0,     // the view needs a paint
    _HYPERLINK = 1,       // a tap on a hyperlink in a word-processing document
    _COMMENT_TAPPED = 2,  // a tap on a cell that has a comment
    _CLICK_UNUSED = 3,    // the view did not use a click
    _COLUMN_SELECTED = 4, // one column of a sheet was selected
    _TRACKS_SELECTED = 5, // a row of a sheet, or several rows or columns, were selected
    _TRACK_RESIZED = 6,   // a resizing stroke ended, also one that changed nothing
    _SLIDE_CHANGED = 7,   // value: the slide now shown, from 0
    _OPENED = 8,          // value: docid, extra: 0 or the module's code
    _PAINT_DONE = 9,      // value: 0, or -4 for a document that does not exist
    _DOCUMENT_LOST = 10,  // value: docid, extra: the module's code; once for a document
    // Touch views only.
    _OVERSCROLL = 11,  // value and extra: how far the finger is beyond the right and bottom edge, in pixels
    _PROGRESS = 12,    // value: docid, extra: how much of the open is done, in percent
    _CELL_TAPPED = 13, // value: column, extra: row, from 0
};

#pragma pack(push, 4)

// Client to service. The two doubles of gesture records occupy x, y and the tail.
// They are read and written with memcpy, because they may be unaligned.
struct ClientServerMessage {
    long type;
    int32_t docid;
    int32_t x;
    int32_t y;
    unsigned char tail[8];

    // Leaves the tail uninitialized: only records of pinches use it.
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

    // The numbers of a pinch record: the factor since the pinch began, and its phase.
    float pinchFactor() const { return tailNumber<float>(0); }
    int32_t pinchPhase() const { return tailNumber<int32_t>(sizeof(float)); }
    void setPinch(float factor, int32_t phase) {
        std::memcpy(tail, &factor, sizeof factor);
        std::memcpy(tail + sizeof factor, &phase, sizeof phase);
    }

    static constexpr size_t TEXT_SIZE = 20;

private:
    template<typename Number>
    Number tailNumber(size_t offset) const {
        Number value;
        std::memcpy(&value, tail + offset, sizeof value);
        return value;
    }
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

// Service to client. The type is the addressee: docid + 101 for paint-done
// records, the identifier of the view's state segment for all others.
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

// The machine's document-adapter queue. Its key is ftok("/tmp", PROJECT_ID).
//
// Threads may share one object. Each call sends or reads a whole message. The
// counters are for information only. Destroying the object does not remove the
// queue. A call that finds the queue removed closes the object: isOpen() is false
// from then on.
//
// A failed read or send writes one line to standard error and sets errno.
class DocAdapterMessageQueue {
public:
    static constexpr unsigned int TIMEOUT_INFINITE = 0xFFFFFFFFu;
    // The flags with which both ends open the queue: IPC_CREAT, and permissions 0666.
    static constexpr int OPEN_FLAGS = 950;
    static constexpr char PROJECT_ID = 79;
    // The highest type of a client record. Higher types are output of the service.
    static constexpr long HIGHEST_CLIENT_TYPE = 99;
    // The service reads with this type: msgrcv then returns the lowest waiting type
    // up to 99.
    static constexpr long ANY_CLIENT_MESSAGE = -HIGHEST_CLIENT_TYPE;
    // Paint-done records for a document are addressed to docid + this.
    static constexpr long PAINT_DONE_BASE = 101;

    // Opens the queue. Returns 0, or the error number after writing a line to
    // standard error.
    int Open(int flags, char project);
    // Throws away all waiting records of any size. Returns 0, or ENODEV if the queue
    // is not open.
    int Drain();
    // Removes the queue from the system. Returns 0, or the error number; then the
    // object stays open. Safe in a signal handler.
    int Remove();
    bool isOpen() const { return mQueueId != NOT_OPEN; }

    // The service's read: waits for a record of this type, or, if the type is
    // negative, of its absolute value or lower. Like every read it throws away
    // records that are too long and fills shorter ones with zeros. Returns the
    // number of bytes read, or -1.
    long ReadMessage(long type, ClientServerMessage& message);
    // The client's read. Sleeps 10 ms between two tries. The timeout counts the
    // sleeps and not the real time: 25 ms mean three tries and three sleeps. With a
    // timeout of 0 it tries once. Returns the number of bytes read, or -1 (errno is
    // ENOMSG after a timeout).
    long ReadMessage(long type, ServerClientMessage& message, unsigned int timeoutMs);
    // Sends a record, and waits while the queue is full. Returns 0, or -1. A type
    // below 1 is refused with EINVAL.
    int SendMessage(const ServerClientMessage& message);
    int SendMessage(const ClientServerMessage& message);

    // Asks the system for the queue's status and returns the result, 0 or -1. The
    // text is ignored.
    int trace_msg_queue(const char* text);

    int messagesRead() const { return mMessagesRead; }
    int messagesSent() const { return mMessagesSent; }

protected:
    static constexpr int NOT_OPEN = -1;

    // Writes `what` and errno to standard error, closes the object if the queue `id`
    // was removed, and returns -1. Keeps errno.
    int fail(const char* what, int id);

    std::atomic<int> mQueueId{NOT_OPEN};
    std::atomic<int> mMessagesRead{0};
    std::atomic<int> mMessagesSent{0};

private:
    template<typename Record>
    int send(const Record& message);
};

// Unlocks its mutex, if it has locked one, when destroyed.
class MutexLock {
public:
    MutexLock() = default;
    ~MutexLock();
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

    // Locks a mutex and returns the result of pthread_mutex_lock. If that is not 0,
    // writes it to standard error. REQUIRES: mutex is not null, and this guard has
    // not locked one yet.
    int lock(pthread_mutex_t* mutex);

private:
    pthread_mutex_t* mMutex = nullptr;
};
