// SPDX-License-Identifier: Apache-2.0
#include "service/Registry.h"

#include "channel/ServiceQueue.h"
#include "service/Resting.h"

#include <algorithm>
#include <cstdio>

std::vector<Documents>& gDocuments = *new std::vector<Documents>();
pthread_mutex_t gDocumentsMutex = PTHREAD_MUTEX_INITIALIZER;
Registry gRegistry;

RegistryLock::RegistryLock() {
    const int result = pthread_mutex_lock(&gDocumentsMutex);
    mHeld = result == 0;
    if (!mHeld) {
        std::fprintf(stderr, "Unable to acquire mutex: %d.", result);
    }
}

RegistryLock::~RegistryLock() {
    if (!mHeld) {
        return;
    }
    const int result = pthread_mutex_unlock(&gDocumentsMutex);
    if (result != 0) {
        std::fprintf(stderr, "Unable to release mutex: %d.", result);
    }
}

bool DocumentExists(unsigned int docid) {
    return docid < gDocuments.size() && gDocuments[docid].view != nullptr;
}

Documents* UseDocument(unsigned int docid) {
    if (!DocumentExists(docid)) {
        return nullptr;
    }
    noteUse(gDocuments[docid]);
    return &gDocuments[docid];
}

namespace {

void destroyRecord(Documents& document) {
    document.view->SaveStateToDataStore();
    const unsigned int addressee = document.view->dataStoreShmId();
    document.view.reset();
    // A later view may get the same identifier and must not receive old output.
    g_msgQueue.Discard(static_cast<long>(addressee));

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
    const RegistryLock lock;
    if (!lock.held()) {
        return;
    }
    if (DocumentExists(static_cast<unsigned int>(docid))) {
        destroyRecord(gDocuments[static_cast<size_t>(docid)]);
    }
    if (std::all_of(gDocuments.begin(), gDocuments.end(),
                    [](const Documents& document) { return document.view == nullptr; })) {
        gDocuments.clear();
    }
}
