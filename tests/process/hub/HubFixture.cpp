// SPDX-License-Identifier: Apache-2.0
#include "tests/process/hub/HubFixture.h"

Record gRecord;

namespace {

const char* note(HubMessage* message) {
    const char* payload = HubMessageGetPayload(message);
    gRecord.payloads.emplace_back(payload);
    return payload;
}

void reply(HubHandle* handle, HubMessage* message, const char* text) {
    ErrorHolder error;
    const bool sent = HubMessageReply(handle, message, text, error.get());
    EXPECT_EQ(sent, error.code() == HUB_ERROR_NONE);
    gRecord.replyCodes.push_back(error.code());
}

bool echo(HubHandle* handle, HubMessage* message, void* data) {
    EXPECT_EQ(data, nullptr);
    reply(handle, message, note(message));
    return true;
}

bool silent(HubHandle*, HubMessage* message, void*) {
    note(message);
    return true;
}

bool refuse(HubHandle*, HubMessage* message, void*) {
    note(message);
    return false;
}

bool raw(HubHandle* handle, HubMessage* message, void*) {
    reply(handle, message, gRecord.rawReply.c_str());
    return true;
}

bool twice(HubHandle* handle, HubMessage* message, void*) {
    reply(handle, message, "first");
    reply(handle, message, "second");
    return true;
}

bool replyAndRefuse(HubHandle* handle, HubMessage* message, void*) {
    reply(handle, message, "answered");
    return false;
}

bool badReplies(HubHandle* handle, HubMessage* message, void*) {
    reply(handle, message, nullptr);
    reply(nullptr, message, "text");
    reply(handle, nullptr, "text");
    reply(handle, message, "good");
    return true;
}

} // namespace

const HubMethod EVENT_METHODS[] = {{"echo", echo, 0},
                                   {"silent", silent, 0},
                                   {"refuse", refuse, 0},
                                   {"raw", raw, 0},
                                   {"twice", twice, 0},
                                   {"replyAndRefuse", replyAndRefuse, 0},
                                   {"badReplies", badReplies, 0},
                                   {nullptr, nullptr, 0}};

const HubMethod COMMON_METHODS[] = {{"echo", echo, 0}, {nullptr, nullptr, 0}};

HubFixture::HubFixture() : mClient(mBus.address()), mLoop(g_main_loop_new(nullptr, FALSE)) {
    gRecord = Record();
}

HubFixture::~HubFixture() {
    mBus.stop();
    // The service's connection outlives the test, so handle its loss here.
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    g_main_loop_unref(mLoop);
}

void HubFixture::SetUp() {
    ASSERT_TRUE(mBus.isRunning());
    ASSERT_NE(mClient.connection(), nullptr);
    mBus.becomeSessionBus();
}

void HubFixture::registerService() {
    ASSERT_TRUE(HubRegister(SERVICE, &mHandle, mError.get())) << mError.text();
    ASSERT_TRUE(HubRegisterCategory(mHandle, "/events", EVENT_METHODS, nullptr, nullptr, mError.get()))
        << mError.text();
    ASSERT_TRUE(HubRegisterCategory(mHandle, "/common", COMMON_METHODS, nullptr, nullptr, mError.get()))
        << mError.text();
}

void HubFixture::attachService() {
    ASSERT_NO_FATAL_FAILURE(registerService());
    ASSERT_TRUE(HubGmainAttach(mHandle, mLoop, mError.get())) << mError.text();
}

Answer HubFixture::call(const char* method, const std::string& payload) const {
    return mClient.call(SERVICE, "/events", "com.kestrel.hubtest.events", method,
                        g_variant_new("(s)", payload.c_str()));
}
