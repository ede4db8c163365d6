// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hub/hubservice.h"
#include "service/Json.h"

#include <string>

// Parses the message's payload. The caller owns the object. Null if the payload
// is not JSON; the readers of Json.h treat null as an object without members.
json_object* HubMessageGetPayloadCJSON(HubMessage* message);

// Sends a reply. When the bus refuses it, writes the bus library's message to
// standard error and returns false; callers have nothing else to do then.
bool HubMessageReplyWrapper(HubHandle* handle, HubMessage* message, const char* text);

// The error codes of bus methods. Clients compare these texts.
inline constexpr char PARAM_FAILED[] = "errParamFailed";
inline constexpr char DOES_NOT_EXIST[] = "errDoesNotExist";
inline constexpr char WRONG_TYPE[] = "errWrongType";
inline constexpr char DOC_TYPE[] = "errDocType";
inline constexpr char OUT_OF_RANGE[] = "errOutOfRange";
inline constexpr char NOT_OPEN[] = "errNotOpen";
inline constexpr char NOTHING_THERE[] = "errNothingThere";

inline constexpr char NO_DOCID[] = "failed to get docid";
inline constexpr char NO_PARAMETER[] = "failed to get required parameter";
inline constexpr char NO_SEARCH_TEXT[] = "failed to get search query";
inline constexpr char NO_DOCUMENT_TEXT[] = "Document does not exist";
inline constexpr char NOTHING_THERE_TEXT[] = "nothing there";
inline constexpr char NOT_OPEN_TEXT[] = "Document is still being opened";
inline constexpr char OUT_OF_RANGE_TEXT[] = "a value is out of range";

// One call of a bus method, on the stack of its handler. The constructor and the
// destructor set the idle clock. The object owns the parsed payload and sends the
// reply. Texts read from the payload are valid until it is destroyed. Main
// thread only.
class BusCall {
public:
    BusCall(HubHandle* handle, HubMessage* message);
    ~BusCall();
    BusCall(const BusCall&) = delete;
    BusCall& operator=(const BusCall&) = delete;

    json_object* payload() const { return mPayload.get(); }
    // The caller's name on the bus.
    std::string sender() const { return HubMessageGetSender(mMessage); }

    // Reads a required parameter. If it is missing, replies "errParamFailed" with
    // missingText and returns false.
    [[nodiscard]] bool require(const char* key, int& value, const char* missingText = NO_PARAMETER);
    [[nodiscard]] bool require(const char* key, unsigned int& value, const char* missingText = NO_PARAMETER);
    [[nodiscard]] bool require(const char* key, double& value, const char* missingText = NO_PARAMETER);
    [[nodiscard]] bool require(const char* key, bool& value, const char* missingText = NO_PARAMETER);
    [[nodiscard]] bool require(const char* key, const char*& value, const char* missingText = NO_PARAMETER);

    void reply(const std::string& text);
    // Replies {"returnValue": true}.
    void replyDone();
    void replyError(const char* code, const char* text);

private:
    // Returns `found`, after replying that the parameter is missing if it is false.
    bool check(bool found, const char* missingText);

    HubHandle* mHandle;
    HubMessage* mMessage;
    JsonObject mPayload;
};
