// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "client/lib/PrivateBus.h"
#include "tests/unit/client/FakeView.h"

#include <gio/gio.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

// A fake document service on a private bus; its replies are scripted. "create"
// makes a FakeView. Calls are answered on the connection's own thread.
class FakeService {
public:
    struct Call {
        std::string place; // for example "/common Search"
        std::string payload;
        bool operator==(const Call&) const = default;
    };

    FakeService();
    ~FakeService();
    FakeService(const FakeService&) = delete;
    FakeService& operator=(const FakeService&) = delete;

    const std::string& address() const { return mBus->address(); }

    // Sets a method's reply, which is {"returnValue": true} by default; with
    // nothing the method never replies.
    void answer(const std::string& place, std::optional<std::string> reply);
    // Makes a method fail with a D-Bus error of this name.
    void fail(const std::string& place, const std::string& error);
    // Sets the result in the opened record; 0 by default.
    void openResult(int code) { mOpenResult = code; }
    // Sets whether an open is followed by an opened record.
    void sendsOpened(bool does) { mSendsOpened = does; }
    void documentKind(int kind) { mKind = kind; }
    // Replies to an unanswered open with a document of this number.
    void answerOpenLate(int docid);
    // Leaves the bus, as a service that stops or is killed; ends its view too.
    void vanish();
    // Returns to the bus as a new service with the same name.
    void comeBack();

    std::vector<Call> calls() const;
    // Waits for the call number `count` of a method; returns its payload.
    std::string waitForCall(const std::string& place, int count = 1);
    // Whether the last call of a method was allowed to start the service.
    bool mayStartIt(const std::string& place);
    // The bus name that the last call of a method was sent to.
    std::string lastDestination(const std::string& place);
    // The view of the last "create". REQUIRES: there was one.
    FakeView& view() { return *mView; }

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                void* self);
    void handle(GDBusConnection* connection, GDBusMessage* message);
    void send(GDBusConnection* connection, GDBusMessage* call, const std::string& text);
    std::optional<std::string> failureOf(const Call& call);
    std::optional<std::string> replyTo(const Call& call);
    std::string create(const std::string& payload);

    std::optional<lectern::PrivateBus> mBus;
    lectern::GLibHolder<GDBusConnection> mConnection;
    unsigned int mFilter = 0;
    mutable std::mutex mMutex;
    std::condition_variable mCalled;
    std::map<std::string, std::optional<std::string>> mAnswers;
    std::map<std::string, std::string> mFailures;
    std::vector<Call> mCalls;
    std::map<std::string, int> mFlags;
    std::map<std::string, std::string> mDestinations;
    lectern::GLibHolder<GDBusMessage> mLastOpen;
    std::unique_ptr<FakeView> mView;
    std::atomic<int> mOpenResult{0};
    std::atomic<bool> mSendsOpened{true};
    std::atomic<int> mKind{2};
};
