// SPDX-License-Identifier: Apache-2.0
#include "service/Registry.h"

#include "channel/ServiceQueue.h"
#include "service/Opening.h"
#include "service/Resting.h"

#include <algorithm>
#include <atomic>
#include <cstdio>

std::deque<Documents>& gDocuments = *new std::deque<Documents>();
pthread_mutex_t gDocumentsMutex = PTHREAD_MUTEX_INITIALIZER;
Registry gRegistry;

namespace {

thread_local bool tHoldsLock = false; // also while it is suspended
pthread_cond_t documentReleased = PTHREAD_COND_INITIALIZER;
// Documents whose deferred records are next to be served.
std::deque<Documents*>& withDeferred GUARDED_BY(gRegistry) = *new std::deque<Documents*>();
std::atomic<bool> hasDeferred = false; // the same, for a look without the lock

bool lockRegistry() {
    const int result = pthread_mutex_lock(&gDocumentsMutex);
    if (result != 0) {
        std::fprintf(stderr, "Unable to acquire mutex: %d.", result);
    }
    return result == 0;
}

void unlockRegistry() {
    const int result = pthread_mutex_unlock(&gDocumentsMutex);
    if (result != 0) {
        std::fprintf(stderr, "Unable to release mutex: %d.", result);
    }
}

} // namespace

RegistryLock::RegistryLock() : mHeld(lockRegistry()) {
    tHoldsLock = mHeld;
}

RegistryLock::~RegistryLock() {
    if (!mHeld) {
        return;
    }
    release();
    tHoldsLock = false;
    unlockRegistry();
}

Documents* RegistryLock::claim(unsigned int docid) {
    release();
    while (IsInUse(docid)) {
        pthread_cond_wait(&documentReleased, &gDocumentsMutex);
    }
    if (!DocumentExists(docid) || IsOpening(docid)) {
        return nullptr;
    }
    mClaimed = &gDocuments[docid];
    mClaimed->inUse = true;
    return mClaimed;
}

Documents* RegistryLock::claimDeferred(ClientServerMessage& message) {
    release();
    if (withDeferred.empty()) {
        return nullptr;
    }
    mClaimed = withDeferred.front();
    withDeferred.pop_front();
    hasDeferred = !withDeferred.empty();
    message = mClaimed->deferred.popOldest();
    return mClaimed;
}

void RegistryLock::release() {
    if (mClaimed == nullptr) {
        return;
    }
    if (mClaimed->deferred.empty()) {
        mClaimed->inUse = false;
        pthread_cond_broadcast(&documentReleased);
    } else {
        withDeferred.push_back(mClaimed);
        hasDeferred = true;
        g_msgQueue.Wake();
    }
    mClaimed = nullptr;
}

bool RegistryLock::suspend() {
    if (!tHoldsLock) {
        return false;
    }
    const bool severalDocuments = HasSeveralDocuments();
    unlockRegistry();
    return severalDocuments;
}

void RegistryLock::resume() {
    if (tHoldsLock) {
        lockRegistry();
    }
}

bool DocumentExists(unsigned int docid) {
    return docid < gDocuments.size() && gDocuments[docid].view != nullptr;
}

bool IsInUse(unsigned int docid) {
    return DocumentExists(docid) && gDocuments[docid].inUse;
}

bool IsOpening(unsigned int docid) {
    return DocumentExists(docid) && gDocuments[docid].opening != nullptr;
}

bool HasSeveralDocuments() {
    return std::count_if(gDocuments.begin(), gDocuments.end(),
                         [](const Documents& document) { return document.view != nullptr; }) > 1;
}

bool HasDeferred() {
    return hasDeferred;
}

void DropDeferred() {
    const RegistryLock lock;
    if (!lock.held()) {
        return;
    }
    for (Documents& document : gDocuments) {
        document.deferred = Backlog();
    }
    for (Documents* document : withDeferred) {
        document->inUse = false;
    }
    withDeferred.clear();
    hasDeferred = false;
    pthread_cond_broadcast(&documentReleased);
}

Documents* UseDocument(RegistryLock& lock, unsigned int docid) {
    Documents* document = lock.claim(docid);
    if (document != nullptr) {
        noteUse(*document);
    }
    return document;
}

namespace {

void closeView(Documents& document) {
    document.view->SaveStateToDataStore();
    const unsigned int addressee = document.view->dataStoreShmId();
    document.view.reset();
    // A later view may get the same identifier and must not receive old output.
    g_msgQueue.Discard(static_cast<long>(addressee));
}

void detachFrame(Documents& document) {
    if (document.shmid == 0) {
        // 0 means "no segment", although the system may use it as an identifier.
        // The attachment, if there is one, is kept until the process ends.
        if (document.frame) {
            document.frame->abandon();
        }
        return;
    }
    document.shmid = 0;
    document.size = 0;
    document.frame.reset();
    document.buffer = nullptr;
    document.status = nullptr;
}

} // namespace

void doDestroy(int docid) {
    RegistryLock lock;
    if (!lock.held()) {
        return;
    }
    const auto index = static_cast<unsigned int>(docid);
    if (Documents* document = lock.claim(index)) {
        closeView(*document);
        detachFrame(*document);
        lock.release();
    } else if (IsOpening(index)) {
        Opening::abandon(gDocuments[index]);
        detachFrame(gDocuments[index]);
    }
    if (std::all_of(gDocuments.begin(), gDocuments.end(),
                    [](const Documents& document) { return document.view == nullptr; })) {
        gDocuments.clear();
    }
}
