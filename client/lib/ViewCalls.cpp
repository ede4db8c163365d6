// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ViewCalls.h"

#include "client/lib/Calls.h"

namespace lectern::events {

namespace {

constexpr char CATEGORY[] = "/events";

Call<void> pointer(const char* method, int x, int y) {
    return command(CATEGORY, method, JsonMembers().add("xCoord", x).add("yCoord", y));
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

Call<void> handleClick(int x, int y) {
    return pointer("handleClick", x, y);
}

Call<void> handleDoubleClick(int x, int y) {
    return pointer("handleDoubleClick", x, y);
}

Call<void> handleFlick(int velocityX, int velocityY) {
    return pointer("handleFlick", velocityX, velocityY == 0 ? 1 : velocityY);
}

} // namespace lectern::events

namespace lectern::touch {

Call<void> resize(const FrameBuffer& frame) {
    return command("/touch", "resize", addFrame({}, frame));
}

Failure cancel(const Bus& bus, int docid, const std::string& owner) {
    return bus.post("/touch", "cancel", documentPayload(docid).text(), owner);
}

} // namespace lectern::touch
