// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/EventCalls.h>

namespace lectern::events {

namespace {

constexpr char CATEGORY[] = "/events";

Failure pointer(const Bus& bus, const char* method, int docid, int x, int y, const CallLimits& limits) {
    return command(bus, CATEGORY, method, documentPayload(docid).add("xCoord", x).add("yCoord", y), limits);
}

Failure key(const Bus& bus, const char* method, int docid, int character, int modifiers,
            const CallLimits& limits) {
    return command(bus, CATEGORY, method,
                   documentPayload(docid).add("chr", character).add("modifiers", modifiers), limits);
}

Result<CreateReply> readCreated(const Reply& reply) {
    const Result<JsonMembers> members = required(JsonMembers::parse(reply.text));
    if (!members) {
        return members.error();
    }
    const Result<int> docid = required(members->integer("docid"));
    const Result<int> kind = required(members->integer("doctype"));
    const Result<unsigned int> state = required(members->identifier("datastoreshmid"));
    if (!docid || !kind || !state) {
        return !docid ? docid.error() : !kind ? kind.error() : state.error();
    }
    return CreateReply{*docid, *kind, *state, reply.sender};
}

// Destroys a document whose creation was given up before the reply came.
void destroyLate(const Bus& bus, const Reply& reply) {
    if (const Result<CreateReply> created = readCreated(reply)) {
        (void)destroy(bus, created->docid, created->owner);
    }
}

} // namespace

Result<CreateReply> create(const Bus& bus, const CreateRequest& request, const CallLimits& limits) {
    JsonMembers payload;
    payload.add("filename", request.path)
        .add("width", request.width)
        .add("height", request.height)
        .addIdentifier("shmid", request.frameBuffer)
        .add("size", request.frameBufferSize)
        .addIdentifier("datastoreshmid", request.state);
    if (request.password) {
        payload.add("password", *request.password);
    }
    if (request.touch) {
        payload.add("manners", std::string("touch"));
    }
    if (request.dpi) {
        payload.add("dpi", *request.dpi);
    }
    if (request.kind) {
        payload.add("kind", *request.kind);
    }
    const Result<Reply> reply = bus.request(CATEGORY, "create", payload.text(), limits, destroyLate);
    if (!reply) {
        return reply.error();
    }
    return readCreated(*reply);
}

Failure destroy(const Bus& bus, int docid, const std::string& owner) {
    return bus.post(CATEGORY, "destroy", documentPayload(docid).text(), owner);
}

Failure ping(const Bus& bus) {
    return bus.post(CATEGORY, "ping", JsonMembers().text());
}

Failure handlePenDown(const Bus& bus, int docid, int x, int y, const CallLimits& limits) {
    return pointer(bus, "handlePenDown", docid, x, y, limits);
}

Failure handlePenUp(const Bus& bus, int docid, int x, int y, const CallLimits& limits) {
    return pointer(bus, "handlePenUp", docid, x, y, limits);
}

Failure handlePenMove(const Bus& bus, int docid, int x, int y, const CallLimits& limits) {
    return pointer(bus, "handlePenMove", docid, x, y, limits);
}

Failure handleKeyDown(const Bus& bus, int docid, int character, int modifiers, const CallLimits& limits) {
    return key(bus, "handleKeyDown", docid, character, modifiers, limits);
}

Failure handleKeyUp(const Bus& bus, int docid, int character, int modifiers, const CallLimits& limits) {
    return key(bus, "handleKeyUp", docid, character, modifiers, limits);
}

Failure handleClick(const Bus& bus, int docid, int x, int y, const CallLimits& limits) {
    return pointer(bus, "handleClick", docid, x, y, limits);
}

Failure handleDoubleClick(const Bus& bus, int docid, int x, int y, const CallLimits& limits) {
    return pointer(bus, "handleDoubleClick", docid, x, y, limits);
}

Failure handleFlick(const Bus& bus, int docid, int velocityX, int velocityY, const CallLimits& limits) {
    return pointer(bus, "handleFlick", docid, velocityX, velocityY == 0 ? 1 : velocityY, limits);
}

} // namespace lectern::events
