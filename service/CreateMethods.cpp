// SPDX-License-Identifier: Apache-2.0
#include "service/CreateMethods.h"

#include "channel/ServiceQueue.h"
#include "service/BusCall.h"
#include "service/DocumentKind.h"
#include "service/Limits.h"
#include "service/Opening.h"
#include "service/Parameters.h"
#include "service/Registry.h"
#include "service/Resting.h"
#include "view/JsonReply.h"
#include "view/ModuleArguments.h"

#include <malloc.h>
#include <sys/shm.h>
#include <syslog.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

namespace {

struct CreateRequest {
    const char* fileName = nullptr;
    int width = 0;
    int height = 0;
    unsigned int shmid = 0;
    int size = 0;
    unsigned int dataStoreShmId = 0;
    const char* password = nullptr; // optional
    // What a client with touch manners may add.
    bool touch = false;
    double dotsPerInch = DOTS_PER_INCH;
    const char* kind = nullptr; // else the file name's extension decides
};

// Screens are not coarser or finer than this.
constexpr double LEAST_DOTS_PER_INCH = 36.0;
constexpr double MOST_DOTS_PER_INCH = 1200.0;

void readManners(json_object* payload, CreateRequest& request) {
    const char* manners = nullptr;
    request.touch = json_get_string(payload, "manners", &manners) && std::strcmp(manners, "touch") == 0;
    if (!request.touch) {
        return;
    }
    double dotsPerInch = 0.0;
    if (json_get_double(payload, "dpi", &dotsPerInch) && dotsPerInch > 0.0) {
        request.dotsPerInch = std::clamp(dotsPerInch, LEAST_DOTS_PER_INCH, MOST_DOTS_PER_INCH);
    }
    json_get_string(payload, "kind", &request.kind);
}

// If a required parameter is missing, replies with an error and returns false.
bool readRequest(BusCall& call, CreateRequest& request) {
    json_get_string(call.payload(), "password", &request.password);
    readManners(call.payload(), request);
    return call.require("filename", request.fileName) && call.require("width", request.width) &&
           call.require("height", request.height) && call.require("shmid", request.shmid) &&
           call.require("size", request.size) && call.require("datastoreshmid", request.dataStoreShmId);
}

Documents makeRecord(const BusCall& call, const CreateRequest& request, FrameBuffer frame,
                     std::unique_ptr<OfficeBase> view) {
    Documents document;
    document.view = std::move(view);
    document.client = call.sender();
    document.shmid = request.shmid;
    document.size = request.size;
    document.buffer = frame.pixels();
    document.status = frame.status();
    document.frame = std::move(frame);
    return document;
}

// Replies to a "create" and writes the docid and the data store's identifier into
// the frame buffer. False when out of memory.
bool answerCreated(BusCall& call, const Documents& document, int docid) {
    const JsonOwner reply(json_object_new_object());
    if (reply == nullptr) {
        return false;
    }
    const unsigned int dataStore = document.view->dataStoreShmId();
    json_object_object_add(reply.get(), "docid", json_object_new_int(docid));
    json_object_object_add(reply.get(), "doctype", json_object_new_int(document.view->docType()));
    json_object_object_add(reply.get(), "datastoreshmid", json_object_new_uint(dataStore));
    // Marks the state segment for removal: the system removes it after the last
    // detach, the client's or the service's. For a view without a segment the
    // identifier is 0, which may belong to somebody else's segment.
    if (dataStore > static_cast<unsigned int>(DocAdapterMessageQueue::HIGHEST_CLIENT_TYPE)) {
        shmctl(static_cast<int>(dataStore), IPC_RMID, nullptr);
    }
    *document.status = static_cast<unsigned char>(docid);
    *document.buffer = dataStore;
    call.reply(jsonText(reply));
    return true;
}

void reportOpened(const CreateRequest& request, const Documents& document, int docid, int result) {
    if (result != 0) {
        syslog(LOG_NOTICE, "Error 0x%x opening '%s'.", static_cast<unsigned int>(result), request.fileName);
    }
    ServerClientMessage opened(static_cast<long>(document.view->dataStoreShmId()), _OPENED);
    opened.value = docid;
    opened.extra = result;
    g_msgQueue.SendMessage(opened);
}

ViewMaker viewMakerOf(const CreateRequest& request) {
    if (!request.touch) {
        return ViewMakerOf(KindOf(request.fileName));
    }
    const doctype_t kind = request.kind != nullptr ? KindNamed(request.kind) : KindOf(request.fileName);
    return TouchViewMakerOf(kind, request.dotsPerInch);
}

// Opens the file before it answers.
void openAtOnce(BusCall& call, const CreateRequest& request, Documents& document, int docid,
                RegistryLock& lock) REQUIRES(gRegistry) {
    lock.claim(static_cast<unsigned int>(docid));
    const int result = document.view->openFile(request.fileName, request.password);
    noteUse(document);
    if (answerCreated(call, document, docid)) {
        reportOpened(request, document, docid, result);
    }
}

// Answers at once; the returned opening is to be started when the registry is free.
std::shared_ptr<Opening> openLater(BusCall& call, const CreateRequest& request, Documents& document,
                                   int docid, const ViewMaker& makeView) REQUIRES(gRegistry) {
    const unsigned int dataStore = document.view->dataStoreShmId();
    document.opening = Opening::of(document, docid, request.fileName, request.password,
                                   [makeView, width = request.width, height = request.height, docid,
                                    dataStore] { return makeView(width, height, docid, dataStore); });
    (void)answerCreated(call, document, docid); // without memory for a reply the record with id 8 must do
    return document.opening;
}

std::shared_ptr<Opening> openDocument(BusCall& call, const CreateRequest& request, FrameBuffer frame,
                                      const ViewMaker& makeView, RegistryLock& lock) REQUIRES(gRegistry) {
    const auto docid = static_cast<int>(gDocuments.size());
    // Nobody waits any longer for paint-done records of an earlier document that
    // had this docid.
    g_msgQueue.Discard(docid + DocAdapterMessageQueue::PAINT_DONE_BASE);

    Documents& document = gDocuments.emplace_back(
        makeRecord(call, request, std::move(frame),
                   makeView(request.width, request.height, docid, request.dataStoreShmId)));
    if (request.touch) {
        return openLater(call, request, document, docid, makeView);
    }
    openAtOnce(call, request, document, docid, lock);
    return nullptr;
}

// Makes the document, or replies why not. Returns the opening that is to be started.
std::shared_ptr<Opening> createDocument(BusCall& call, const CreateRequest& request) {
    const char* problem = nullptr;
    std::optional<FrameBuffer> frame =
        FrameBuffer::attach(request.shmid, request.width, request.height, request.size, problem);

    RegistryLock lock;
    if (!lock.held()) {
        return nullptr;
    }
    const ViewMaker makeView = viewMakerOf(request);
    if (makeView == nullptr) {
        call.replyError(DOC_TYPE, "doctype is unkown");
    } else if (!frame) {
        std::fprintf(stderr, "Frame buffer refused: %s.\n", problem);
        call.replyError(PARAM_FAILED, NO_PARAMETER);
    } else if (const char* refusal = refusalOf(call.sender(), *frame, request.width, request.height)) {
        std::fprintf(stderr, "Document refused: %s.\n", refusal);
        call.replyError(PARAM_FAILED, NO_PARAMETER);
    } else {
        return openDocument(call, request, std::move(*frame), makeView, lock);
    }
    return nullptr;
}

} // namespace

bool create(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    CreateRequest request;
    if (!readRequest(call, request)) {
        return true;
    }
    if (const std::shared_ptr<Opening> opening = createDocument(call, request)) {
        startOpening(opening);
    }
    return true;
}

bool destroy(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    Docid parameters;
    if (parameters.read(call)) {
        doDestroy(parameters.docid);
        malloc_trim(0); // what the C library keeps of a closed document would add up
    }
    return true;
}
