// SPDX-License-Identifier: Apache-2.0
// The registry of open documents. Clients refer to a document by its docid, the
// index of its record. Records of destroyed documents stay as empty slots until
// the last document is destroyed; then numbering starts again at 0.
#pragma once

#include "base/ThreadAnnotations.h"
#include "service/FrameBuffer.h"
#include "view/OfficeBase.h"

#include <pthread.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

struct Documents {
    std::unique_ptr<OfficeBase> view;              // null once destroyed
    uint32_t shmid = 0;                            // the client's frame-buffer segment; 0: none
    int32_t size = 0;                              // the segment's size in bytes, as the client stated it
    unsigned int* buffer = nullptr;                // the frame's first pixel
    unsigned char* status = nullptr;               // the last of the `size` bytes: 1 after each paint
    std::optional<FrameBuffer> frame;              // the attachment behind buffer and status
    std::chrono::steady_clock::time_point lastUse; // see service/Resting.h
};

extern pthread_mutex_t gDocumentsMutex;

// Stands for gDocumentsMutex in the thread safety analysis, which cannot follow a
// pthread mutex.
class CAPABILITY("mutex") Registry {};
extern Registry gRegistry;

// gDocumentsMutex guards the documents and every call into a view. The vector is
// never destroyed: documents that are open when the service ends are freed with
// the process.
extern std::vector<Documents>& gDocuments GUARDED_BY(gRegistry);

// Locks gDocumentsMutex for its lifetime. Writes to standard error if locking or
// unlocking fails. Only code that holds one may use gDocuments.
class SCOPED_CAPABILITY RegistryLock {
public:
    RegistryLock() ACQUIRE(gRegistry);
    ~RegistryLock() RELEASE();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    bool held() const { return mHeld; }

private:
    bool mHeld;
};

// Whether the document is open. A negative docid becomes a large number, for which
// there is no document.
bool DocumentExists(unsigned int docid) REQUIRES(gRegistry);
// The open document, awake and ready for use; null if there is none.
Documents* UseDocument(unsigned int docid) REQUIRES(gRegistry);

// Saves the document's state and closes it, if it exists. Locks the registry.
void doDestroy(int docid) EXCLUDES(gRegistry);
