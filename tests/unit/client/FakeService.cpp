// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/FakeService.h"

#include "client/lib/Json.h"
#include <lectern/Bus.h>

#include <gtest/gtest.h>

#include <algorithm>

using lectern::GLibHolder;
using lectern::JsonMembers;

FakeService::FakeService() {
    auto bus = lectern::PrivateBus::start();
    if (!bus) {
        ADD_FAILURE() << bus.error().text;
        return;
    }
    mBus.emplace(std::move(*bus));
    mAnswers["/events ping"] = std::nullopt;
    mAnswers["/events destroy"] = std::nullopt;
    comeBack();
}

void FakeService::comeBack() {
    mConnection.reset(g_dbus_connection_new_for_address_sync(
        mBus->address().c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr));
    if (!mConnection) {
        ADD_FAILURE() << "no connection to the private bus";
        return;
    }
    mFilter = g_dbus_connection_add_filter(mConnection.get(), &FakeService::filter, this, nullptr);
    const GLibHolder<GVariant> owned(g_dbus_connection_call_sync(
        mConnection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "RequestName", g_variant_new("(su)", lectern::SERVICE_NAME, 4U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
        nullptr, nullptr));
    EXPECT_NE(owned, nullptr);
}

FakeService::~FakeService() {
    vanish();
}

void FakeService::vanish() {
    if (mConnection) {
        g_dbus_connection_close_sync(mConnection.get(), nullptr, nullptr);
        g_dbus_connection_remove_filter(mConnection.get(), mFilter);
    }
    mConnection.reset();
    const std::lock_guard lock(mMutex); // shows the thread sanitizer that the next view comes later
    mView.reset();
}

void FakeService::answerOpenLate(int docid) {
    const std::lock_guard lock(mMutex);
    send(mConnection.get(), mLastOpen.get(),
         JsonMembers().add("docid", docid).add("doctype", 2).addIdentifier("datastoreshmid", 5'000).text());
}

void FakeService::answer(const std::string& place, std::optional<std::string> reply) {
    const std::lock_guard lock(mMutex);
    mAnswers[place] = std::move(reply);
}

bool FakeService::mayStartIt(const std::string& place) {
    const std::lock_guard lock(mMutex);
    return (mFlags.at(place) & G_DBUS_MESSAGE_FLAGS_NO_AUTO_START) == 0;
}

std::string FakeService::lastDestination(const std::string& place) {
    const std::lock_guard lock(mMutex);
    return mDestinations.at(place);
}

void FakeService::fail(const std::string& place, const std::string& error) {
    const std::lock_guard lock(mMutex);
    mFailures[place] = error;
}

std::vector<FakeService::Call> FakeService::calls() const {
    const std::lock_guard lock(mMutex);
    return mCalls;
}

std::string FakeService::waitForCall(const std::string& place, int count) {
    std::unique_lock lock(mMutex);
    std::string payload;
    mCalled.wait(lock, [&] {
        int seen = 0;
        return std::any_of(mCalls.begin(), mCalls.end(), [&](const Call& call) {
            payload = call.payload;
            return call.place == place && ++seen == count;
        });
    });
    return payload;
}

GDBusMessage* FakeService::filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                  void* self) {
    if (incoming == FALSE || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
        return message;
    }
    const GLibHolder<GDBusMessage> owner(message);
    static_cast<FakeService*>(self)->handle(connection, message);
    return nullptr;
}

void FakeService::handle(GDBusConnection* connection, GDBusMessage* message) {
    const char* payload = nullptr;
    g_variant_get(g_dbus_message_get_body(message), "(&s)", &payload);
    const Call call{std::string(g_dbus_message_get_path(message)) + " " + g_dbus_message_get_member(message),
                    payload};
    {
        const std::lock_guard lock(mMutex);
        mFlags[call.place] = g_dbus_message_get_flags(message);
        mDestinations[call.place] = g_dbus_message_get_destination(message);
        if (call.place == "/events create") {
            mLastOpen.reset(static_cast<GDBusMessage*>(g_object_ref(message)));
        }
    }
    if (const auto error = failureOf(call)) {
        const GLibHolder<GDBusMessage> reply(
            g_dbus_message_new_method_error_literal(message, error->c_str(), "as told"));
        g_dbus_connection_send_message(connection, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       nullptr);
    } else if (const auto text = replyTo(call)) {
        send(connection, message, *text);
    }
}

void FakeService::send(GDBusConnection* connection, GDBusMessage* call, const std::string& text) {
    const GLibHolder<GDBusMessage> reply(g_dbus_message_new_method_reply(call));
    g_dbus_message_set_body(reply.get(), g_variant_new("(s)", text.c_str()));
    g_dbus_connection_send_message(connection, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
}

std::optional<std::string> FakeService::failureOf(const Call& call) {
    const std::lock_guard lock(mMutex);
    const auto told = mFailures.find(call.place);
    return told == mFailures.end() ? std::nullopt : std::optional(told->second);
}

std::optional<std::string> FakeService::replyTo(const Call& call) {
    const std::lock_guard lock(mMutex);
    mCalls.push_back(call);
    mCalled.notify_all();
    const auto told = mAnswers.find(call.place);
    if (told != mAnswers.end()) {
        return told->second;
    }
    return call.place == "/events create" ? create(call.payload) : R"({"returnValue": true})";
}

std::string FakeService::create(const std::string& payload) {
    constexpr int DOCID = 3;
    const auto members = JsonMembers::parse(payload);
    mView.reset(); // ends the old view's thread before the next begins
    mView = std::make_unique<FakeView>(DOCID, static_cast<int>(members->identifier("shmid").value_or(0)),
                                       members->integer("width").value_or(0),
                                       members->integer("height").value_or(0),
                                       members->identifier("datastoreshmid").value_or(0));
    if (mSendsOpened) {
        mView->notify(_OPENED, DOCID, mOpenResult);
    }
    return JsonMembers()
        .add("docid", DOCID)
        .add("doctype", mKind.load())
        .addIdentifier("datastoreshmid", mView->stateIdentifier())
        .text();
}
