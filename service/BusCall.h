// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hub/hubservice.h"
#include "service/Json.h"

#include <string>

// The message's text as an object; the caller owns it. Null for a text that is
// no JSON, which then has no members.
json_object* HubMessageGetPayloadCJSON(HubMessage* message);

// Sends a reply. False, after the bus library's message on standard error, when
// the bus refuses it; there is nothing else that a caller could do.
bool HubMessageReplyWrapper(HubHandle* handle, HubMessage* message, const char* text);

// What the errors of bus methods are called; clients match on these texts.
inline constexpr char PARAM_FAILED[] = "errParamFailed";
inline constexpr char DOES_NOT_EXIST[] = "errDoesNotExist";
inline constexpr char WRONG_TYPE[] = "errWrongType";
inline constexpr char DOC_TYPE[] = "errDocType";

inline constexpr char NO_DOCID[] = "failed to get docid";
inline constexpr char NO_PARAMETER[] = "failed to get required parameter";

// One call of a bus method, on the stack of its handler: refreshes the idle
// clock when it begins and when it ends, holds the payload and sends the reply.
// Texts read from the payload live as long as the call.
class BusCall {
public:
    BusCall(HubHandle* handle, HubMessage* message);
    ~BusCall();
    BusCall(const BusCall&) = delete;
    BusCall& operator=(const BusCall&) = delete;

    json_object* payload() const { return mPayload.get(); }

    // Reads a parameter that must be there; a missing one is answered with
    // "errParamFailed" and missingText, and false.
    [[nodiscard]] bool require(const char* key, int& value, const char* missingText = NO_PARAMETER);
    [[nodiscard]] bool require(const char* key, unsigned int& value, const char* missingText = NO_PARAMETER);
    [[nodiscard]] bool require(const char* key, bool& value, const char* missingText = NO_PARAMETER);
    [[nodiscard]] bool require(const char* key, const char*& value, const char* missingText = NO_PARAMETER);

    void reply(const std::string& text);
    // {"returnValue": true}
    void replyDone();
    void replyError(const char* code, const char* text);

private:
    // Passes `found` on, after the answer that a parameter is missing.
    bool check(bool found, const char* missingText);

    HubHandle* mHandle;
    HubMessage* mMessage;
    JsonObject mPayload;
};
