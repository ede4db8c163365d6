// SPDX-License-Identifier: Apache-2.0
// The registry of open documents. Clients refer to a document by its docid, the
// index of its record. Records of destroyed documents stay as empty slots until
// the last document is destroyed; then numbering starts again at 0.
#pragma once

#include "base/ThreadAnnotations.h"
#include "channel/Backlog.h"
#include "service/FrameBuffer.h"
#include "view/OfficeBase.h"

#include <pthread.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

class Opening;

struct Documents {
    std::unique_ptr<OfficeBase> view;              // null once destroyed
    std::string client;                            // the bus name of who opened it
    uint32_t shmid = 0;                            // the client's frame-buffer segment; 0: none
    int32_t size = 0;                              // the segment's size in bytes, as the client stated it
    unsigned int* buffer = nullptr;                // the frame's first pixel
    unsigned char* status = nullptr;               // the last of the `size` bytes: 1 after each paint
    std::optional<FrameBuffer> frame;              // the attachment behind buffer and status
    std::chrono::steady_clock::time_point lastUse; // see service/Resting.h
    bool inUse = false;                            // see RegistryLock::claim
    Backlog deferred;                              // client records that arrived meanwhile
    std::shared_ptr<Opening> opening;              // while a thread of its own opens the file
};

extern pthread_mutex_t gDocumentsMutex;

// Stands for gDocumentsMutex in the thread safety analysis, which cannot follow a
// pthread mutex.
class CAPABILITY("mutex") Registry {};
extern Registry gRegistry;

// gDocumentsMutex guards the documents and every call into a view. While a module waits
// for a rendering engine, the mutex is free for other documents (service/ModuleWaits.h).
//
// References to records stay valid while others are added. The container is never
// destroyed: documents that are open when the service ends are freed with the process.
extern std::deque<Documents>& gDocuments GUARDED_BY(gRegistry);

// Locks gDocumentsMutex for its lifetime. Writes to standard error if locking or
// unlocking fails. Only code that holds one may use gDocuments. A thread has one at most.
class SCOPED_CAPABILITY RegistryLock {
public:
    RegistryLock() ACQUIRE(gRegistry);
    ~RegistryLock() RELEASE();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    bool held() const { return mHeld; }

    // The open document; null if there is none, or if its file is being opened. Until the lock goes, or
    // another document is claimed, no other thread gets it, not even while the mutex is free for a wait.
    // Waits itself while another thread uses the document.
    Documents* claim(unsigned int docid) REQUIRES(gRegistry);
    // Claims a document that has deferred records and takes the oldest. Null if there is
    // none. A record that was taken off the queue first is served first, as ever.
    Documents* claimDeferred(ClientServerMessage& message) REQUIRES(gRegistry);
    // Ends the use of the claimed document, unless it has deferred records: then these
    // are next to use it.
    void release() REQUIRES(gRegistry);

    // Around a module's wait on this thread: frees the mutex, takes it again. They do
    // nothing on a thread without a lock. suspend() returns whether others may wait for
    // a document meanwhile: whether this thread had the lock and there are several.
    static bool suspend() NO_THREAD_SAFETY_ANALYSIS; // the lock is this thread's, if any
    static void resume();

private:
    bool mHeld;
    Documents* mClaimed = nullptr;
};

// Whether the document is open. A negative docid becomes a large number, for which
// there is no document.
bool DocumentExists(unsigned int docid) REQUIRES(gRegistry);
// Whether a thread of its own opens the document's file. Only that thread uses the view.
bool IsOpening(unsigned int docid) REQUIRES(gRegistry);
// Claims the document, and wakes it; null if there is none, or if its file is being opened.
Documents* UseDocument(RegistryLock& lock, unsigned int docid) REQUIRES(gRegistry);
// Whether another thread uses the document, or deferred records are next to.
bool IsInUse(unsigned int docid) REQUIRES(gRegistry);
// Whether more than one document is open.
bool HasSeveralDocuments() REQUIRES(gRegistry);
// Whether there may be a document for claimDeferred(). Needs no lock.
bool HasDeferred();
// Drops all deferred records, because nobody serves them any longer.
void DropDeferred() EXCLUDES(gRegistry);

// Saves the document's state and closes it, if it exists. Locks the registry. One whose
// file is being opened is given up, and not waited for.
void doDestroy(int docid) EXCLUDES(gRegistry);
