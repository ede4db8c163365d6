// SPDX-License-Identifier: Apache-2.0
#include "tests/fakes/hub/FakeHub.h"

#include <cstdlib>
#include <cstring>

FakeHub fakeHub;

struct HubHandle {
    int unused = 0;
};

struct HubMessage {
    const char* payload = nullptr;
    std::vector<std::string> replies;
};

namespace {

HubHandle theHandle;

[[noreturn]] void endTests(const std::string& why) {
    std::fprintf(stderr, "fake hub: %s\n", why.c_str());
    std::abort();
}

bool fail(HubError* error, const std::string& message) {
    error->code = 1;
    error->message = strdup(message.c_str());
    return false;
}

bool request(const std::string& what, HubError* error) {
    fakeHub.requests.push_back(what);
    if (fakeHub.onRequest) {
        fakeHub.onRequest(what);
    }
    return what != fakeHub.failing || fail(error, fakeHub.failure);
}

HubMethodHandler find(const std::string& category, const std::string& method) {
    for (const HubMethod* entry = fakeHub.tableOf(category); entry->name != nullptr; ++entry) {
        if (method == entry->name) {
            return entry->handler;
        }
    }
    endTests("no method " + category + " " + method);
}

} // namespace

const HubMethod* FakeHub::tableOf(const std::string& category) const {
    for (const auto& [name, methods] : categories) {
        if (name == category) {
            return methods;
        }
    }
    endTests("no category " + category);
}

std::optional<std::string> FakeHub::call(const std::string& category, const std::string& method,
                                         const char* payload) {
    HubMessage message{payload, {}};
    if (!find(category, method)(&theHandle, &message, nullptr)) {
        endTests(method + " did not handle the call");
    }
    if (message.replies.size() > 1) {
        endTests(method + " replied more than once");
    }
    return message.replies.empty() ? std::nullopt : std::optional(message.replies[0]);
}

bool HubErrorInit(HubError* error) {
    *error = HubError();
    return true;
}

void HubErrorFree(HubError* error) {
    std::free(error->message);
    *error = HubError();
}

void HubErrorPrint(const HubError* error, FILE* stream) {
    std::fprintf(stream, "%d: %s\n", error->code, error->message == nullptr ? "" : error->message);
}

bool HubRegister(const char* name, HubHandle** handle, HubError* error) {
    if (!request(std::string("register ") + name, error)) {
        return false;
    }
    *handle = &theHandle;
    return true;
}

bool HubRegisterCategory(HubHandle* /*handle*/, const char* category, const HubMethod* methods,
                         const HubSignal* /*signals*/, const HubProperty* /*properties*/, HubError* error) {
    if (!request(std::string("category ") + category, error)) {
        return false;
    }
    fakeHub.categories.emplace_back(category, methods);
    return true;
}

bool HubGmainAttach(HubHandle* /*handle*/, GMainLoop* loop, HubError* error) {
    fakeHub.loop = loop;
    return request("attach", error);
}

const char* HubMessageGetPayload(HubMessage* message) {
    if (fakeHub.onPayload) {
        fakeHub.onPayload();
    }
    return message->payload;
}

const char* HubMessageGetSender(HubMessage* /*message*/) {
    return fakeHub.sender.c_str();
}

bool HubMessageReply(HubHandle* /*handle*/, HubMessage* message, const char* payload, HubError* error) {
    if (!fakeHub.replyFailure.empty()) {
        return fail(error, fakeHub.replyFailure);
    }
    if (fakeHub.onReply) {
        fakeHub.onReply(payload);
    }
    message->replies.emplace_back(payload);
    return true;
}
