// SPDX-License-Identifier: Apache-2.0
// The open documents. A document is known to clients by its docid, the index of
// its record; records of destroyed documents stay as empty slots until the last
// document goes, when numbering starts again at 0.
#pragma once

#include "base/ThreadAnnotations.h"
#include "service/FrameBuffer.h"
#include "view/OfficeBase.h"

#include <pthread.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

struct Documents {
    std::unique_ptr<OfficeBase> view; // null once destroyed
    uint32_t shmid = 0;               // the client's frame-buffer segment; 0: none
    int32_t size = 0;                 // bytes of it that the client told
    unsigned int* buffer = nullptr;   // its first pixel
    unsigned char* status = nullptr;  // its last byte: 1 after each paint
    std::optional<FrameBuffer> frame; // the attachment behind buffer and status
};

extern pthread_mutex_t gDocumentsMutex;

// Stands for gDocumentsMutex in the thread safety analysis, which knows no mutex
// of the system's.
class CAPABILITY("mutex") Registry {};
extern Registry gRegistry;

// Guarded by gDocumentsMutex, as is every call into a view. Never destroyed:
// documents that are open when the service ends are left to the process' end.
extern std::vector<Documents>& gDocuments GUARDED_BY(gRegistry);

// Holds the registry; says so on standard error when it cannot be locked or
// unlocked. Nobody but the holder of one touches documents.
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

// Negative docids arrive as large ones and do not exist.
bool DocumentExists(unsigned int docid) REQUIRES(gRegistry);

// Saves the document's state and takes it down; locks the registry itself.
void doDestroy(int docid) EXCLUDES(gRegistry);
