// SPDX-License-Identifier: Apache-2.0
// A service in the test's own process, on a private bus.
#pragma once

#include "hub/hubservice.h"
#include "tests/process/hub/BusClient.h"
#include "tests/process/hub/PrivateBus.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

inline constexpr const char* SERVICE = "com.kestrel.hubtest";
inline constexpr const char* NO_REPLY = "org.freedesktop.DBus.Error.NoReply";
inline constexpr const char* UNKNOWN_METHOD = "org.freedesktop.DBus.Error.UnknownMethod";

// A HubError that is released on destruction.
class ErrorHolder {
public:
    ErrorHolder() { HubErrorInit(&mError); }
    ~ErrorHolder() { HubErrorFree(&mError); }
    ErrorHolder(const ErrorHolder&) = delete;
    ErrorHolder& operator=(const ErrorHolder&) = delete;

    HubError* get() { return &mError; }
    int code() const { return mError.code; }
    std::string text() const { return mError.message != nullptr ? mError.message : ""; }

private:
    HubError mError{};
};

// Record of the handlers' calls in the running test, and the reply of "raw".
// Global, because handlers receive no user data.
struct Record {
    std::vector<std::string> payloads;
    std::string rawReply;
    std::vector<int> replyCodes; // HubError codes, 0 for a reply that was sent
};
extern Record gRecord;

// "echo", "silent", "refuse", "raw", "twice", "replyAndRefuse", "badReplies"
extern const HubMethod EVENT_METHODS[];
// "echo"
extern const HubMethod COMMON_METHODS[];

class HubFixture : public testing::Test {
protected:
    HubFixture();
    ~HubFixture() override;

    void SetUp() override;

    // Registers the service with "/events" and "/common".
    void registerService();
    // Calls registerService and takes the name.
    void attachService();

    Answer call(const char* method, const std::string& payload) const;

    PrivateBus mBus;
    BusClient mClient;
    GMainLoop* mLoop;
    HubHandle* mHandle = nullptr;
    ErrorHolder mError;
};
