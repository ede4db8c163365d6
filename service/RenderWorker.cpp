// SPDX-License-Identifier: Apache-2.0
#include "service/RenderWorker.h"

#include "channel/ServiceQueue.h"
#include "service/DocumentMethod.h"
#include "service/QueueReaders.h"
#include "service/Registry.h"
#include "service/Resting.h"
#include "word/Word.h"

#include <unistd.h>

#include <atomic>
#include <cassert>
#include <cerrno>
#include <cstdio>
#include <semaphore>

namespace {

constexpr int32_t NO_SUCH_DOCUMENT = -4;
constexpr unsigned char PAINTED = 1;
constexpr useconds_t RETRY_MICROSECONDS = 10000;

std::counting_semaphore<> workerReady(0);

// The release store makes all pixels visible before the status byte, because a
// client may poll that byte instead of waiting for the paint-done record.
int paint(const Documents& document, int32_t docid) {
    document.view->handlePaintRouter(document.buffer);
    std::atomic_ref(*document.status).store(PAINTED, std::memory_order_release);
    return g_msgQueue.SendPaintDone(docid, 0, document.view->renderResult());
}

void setWideMode(OfficeBase& view, bool on) {
    if (view.docType() == _WORD) {
        static_cast<Word&>(view).setWideMode(on);
    } else {
        std::fprintf(stderr, "Only Word supports wide mode: %d\n", view.docType());
    }
}

void handleInput(OfficeBase& view, const ClientServerMessage& message) {
    view.setDirty();
    switch (message.type) {
    case _KEY_DOWN:
        view.handleKeyDown(message.x, message.y);
        break;
    case _KEY_UP:
        view.handleKeyUp(message.x, message.y);
        break;
    case _PEN_DOWN:
        withViewLocked(view, [&] { return view.handlePenDown(message.x, message.y); });
        break;
    case _PEN_UP:
        withViewLocked(view, [&] { return view.handlePenUp(message.x, message.y); });
        break;
    case _PEN_MOVE:
        view.handlePenMove(message.x, message.y);
        break;
    case _GESTURE_START:
        view.handleGestureStart(message.firstReal(), message.secondReal());
        break;
    case _GESTURE_CHANGE:
        view.handleGestureChange(message.firstReal(), message.secondReal());
        break;
    case _GESTURE_END:
        view.handleGestureEnd(message.firstReal(), message.secondReal());
        break;
    case _WIDE_MODE:
        setWideMode(view, message.flag());
        break;
    default:
        if (!view.handleRecord(message)) {
            std::printf("Unknown message type %ld\n", message.type);
        }
        break;
    }
}

// A second cancellation point besides the wait for a record. If a client posts
// without pause, the thread never waits, and the service must still be able to end.
void testCancel() {
    int before = 0;
    pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &before);
    pthread_testcancel();
    pthread_setcancelstate(before, nullptr);
}

// Passes a record to the view of a document. False if a paint cannot be reported.
bool serve(const Documents& record, const ClientServerMessage& message) {
    OfficeBase* document = record.view.get();
    assert(document != __null); // NOLINT(modernize-use-nullptr): as the mutex guard's
    bool served = true;
    if (message.type == _PAINT) {
        served = paint(record, message.docid) == 0;
    } else {
        handleInput(*document, message);
    }
    document->tellLoss();
    return served;
}

// Answers a paint of a document whose file is being opened: there is nothing to show yet.
// Drops other input. False if a paint cannot be reported.
bool serveOpening(const Documents& document, const ClientServerMessage& message) {
    if (message.type != _PAINT) {
        return true;
    }
    std::atomic_ref(*document.status).store(PAINTED, std::memory_order_release);
    return g_msgQueue.SendPaintDone(message.docid, 0) == 0;
}

// Serves the next deferred record. False if the worker must end.
bool serveDeferred() {
    RegistryLock lock;
    if (!lock.held()) {
        return false;
    }
    ClientServerMessage message;
    Documents* document = lock.claimDeferred(message);
    if (document == nullptr) {
        return true;
    }
    noteUse(*document);
    return serve(*document, message);
}

// Reads a record, unless there are deferred ones, and serves it. False if the worker
// must end.
bool serveNext() {
    if (!g_msgQueue.isOpen()) {
        return false;
    }
    testCancel();
    if (HasDeferred()) {
        return serveDeferred();
    }
    ClientServerMessage message;
    if (g_msgQueue.ReadMessage(message) == -1) {
        if (g_msgQueue.isOpen() && errno != EINTR) {
            usleep(RETRY_MICROSECONDS); // a persistent error must not cause a busy loop
        }
        return true;
    }
    return serveMessage(message);
}

} // namespace

bool serveMessage(const ClientServerMessage& message) {
    {
        RegistryLock lock;
        if (!lock.held()) {
            return false;
        }
        const auto docid = static_cast<unsigned int>(message.docid);
        // A single document is waited for, unless earlier records of it wait to be served.
        if (IsInUse(docid) && (HasSeveralDocuments() || !gDocuments[docid].deferred.empty())) {
            gDocuments[docid].deferred.push(message);
            return true;
        }
        if (const Documents* document = UseDocument(lock, docid)) {
            return serve(*document, message);
        }
        if (IsOpening(docid)) {
            return serveOpening(gDocuments[docid], message);
        }
    }
    // Input for a document that does not exist is ignored. A paint request is
    // answered, because its sender waits for that.
    return message.type != _PAINT || g_msgQueue.SendPaintDone(message.docid, NO_SUCH_DOCUMENT) == 0;
}

void* server_func(void* /*arg*/) {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr);
    g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID);
    g_msgQueue.Drain();
    workerReady.release();
    gQueueReaders.run(serveNext);
    DropDeferred();
    return nullptr;
}

void awaitWorkerReady() {
    workerReady.acquire();
}
