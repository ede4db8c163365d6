// SPDX-License-Identifier: Apache-2.0
#include "service/BusCall.h"

#include "service/IdleClock.h"
#include "view/JsonReply.h"

#include <cstdio>

json_object* HubMessageGetPayloadCJSON(HubMessage* message) {
    const char* text = HubMessageGetPayload(message);
    return text == nullptr ? nullptr : json_tokener_parse(text);
}

bool HubMessageReplyWrapper(HubHandle* handle, HubMessage* message, const char* text) {
    HubError error;
    HubErrorInit(&error);
    const bool sent = HubMessageReply(handle, message, text, &error);
    if (!sent) {
        HubErrorPrint(&error, stderr);
        HubErrorFree(&error);
    }
    return sent;
}

namespace {

// Sets the idle clock first, because parsing a large payload takes time.
json_object* beginCall(HubMessage* message) {
    prvUpdateTimer();
    return HubMessageGetPayloadCJSON(message);
}

} // namespace

BusCall::BusCall(HubHandle* handle, HubMessage* message)
    : mHandle(handle), mMessage(message), mPayload(beginCall(message)) {}

BusCall::~BusCall() {
    prvUpdateTimer();
}

bool BusCall::check(bool found, const char* missingText) {
    if (!found) {
        replyError(PARAM_FAILED, missingText);
    }
    return found;
}

bool BusCall::require(const char* key, int& value, const char* missingText) {
    return check(json_get_int(payload(), key, &value), missingText);
}

bool BusCall::require(const char* key, double& value, const char* missingText) {
    return check(json_get_double(payload(), key, &value), missingText);
}

bool BusCall::require(const char* key, unsigned int& value, const char* missingText) {
    return check(json_get_uint(payload(), key, &value), missingText);
}

bool BusCall::require(const char* key, bool& value, const char* missingText) {
    return check(json_get_bool(payload(), key, &value), missingText);
}

bool BusCall::require(const char* key, const char*& value, const char* missingText) {
    return check(json_get_string(payload(), key, &value), missingText);
}

void BusCall::reply(const std::string& text) {
    HubMessageReplyWrapper(mHandle, mMessage, text.c_str());
}

void BusCall::replyDone() {
    reply(formatSimpleJsonObject("returnValue", true));
}

void BusCall::replyError(const char* code, const char* text) {
    reply(formatErrorJsonObject(code, text));
}
