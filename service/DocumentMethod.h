// SPDX-License-Identifier: Apache-2.0
// The way that all bus methods of a document go: parameters first, before any
// lock, then the registry's lock, then whether the document exists. What a
// method then does with the view is all that it has to say itself.
#pragma once

#include <cstdio>
#include <initializer_list>

#include "service/BusCall.h"
#include "service/Registry.h"

// An int parameter that must be there, and where it goes.
struct IntParameter {
    const char* key;
    int* value;
};

// Reads parameters up to the first one missing, which is answered with
// "errParamFailed" and this text; false then.
bool readParameters(BusCall& call, std::initializer_list<IntParameter> parameters, const char* missingText);

// Runs operation(view) with the registry held, or answers that there is no such
// document. No answer when the registry cannot be locked.
template<typename Operation>
void withDocument(BusCall& call, int docid, Operation operation) {
    const RegistryLock lock;
    if (!lock.held()) {
        return;
    }
    const auto index = static_cast<unsigned int>(docid);
    if (!DocumentExists(index)) {
        call.replyError(kDoesNotExist, "Document does not exist");
        return;
    }
    operation(*gDocuments[index].view);
}

// The same for methods of one kind of documents: operation(view) gets a View, and
// others are answered that they are none.
template<typename View, typename Operation>
void withDocumentOf(BusCall& call, int docid, const char* wrongKindText, Operation operation) {
    withDocument(call, docid, [&](OfficeBase& view) {
        if (auto* ofKind = dynamic_cast<View*>(&view)) {
            operation(*ofKind);
        } else {
            std::fprintf(stderr, "%s\n", wrongKindText);
            call.replyError(kWrongType, wrongKindText);
        }
    });
}

// A whole handler for a method whose only parameter is "docid".
template<typename Operation>
bool documentMethod(HubHandle* handle, HubMessage* message, Operation operation) {
    BusCall call(handle, message);
    int docid = 0;
    if (readParameters(call, {{"docid", &docid}}, kNoDocid)) {
        withDocument(call, docid, [&](OfficeBase& view) { operation(call, view); });
    }
    return true;
}

// The same for methods of one kind of documents; operation(call, view) gets a View.
template<typename View, typename Operation>
bool documentMethodOf(HubHandle* handle, HubMessage* message, const char* wrongKindText,
                      Operation operation) {
    BusCall call(handle, message);
    int docid = 0;
    if (readParameters(call, {{"docid", &docid}}, kNoDocid)) {
        withDocumentOf<View>(call, docid, wrongKindText, [&](View& view) { operation(call, view); });
    }
    return true;
}

// Runs operation() with the view's own mutex held.
template<typename Operation>
auto withViewLocked(OfficeBase& view, Operation operation) {
    MutexLock lock;
    lock.lock(view.mutex());
    return operation();
}
