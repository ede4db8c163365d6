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

// The document service's name on a private bus, answering as it is told to.
// "create" makes a FakeView. Calls are answered on the connection's own thread.
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

    // What a method answers instead of {"returnValue": true}; nothing means
    // that it never answers.
    void answer(const std::string& place, std::optional<std::string> reply);
    // Has a method fail with a D-Bus error of this name.
    void fail(const std::string& place, const std::string& error);
    // What an open gives the client in its opened record; by default 0.
    void openResult(int code) { mOpenResult = code; }
    // Whether an open is followed by an opened record at all.
    void sendsOpened(bool does) { mSendsOpened = does; }
    void documentKind(int kind) { mKind = kind; }
    // Answers an open that was left unanswered, with the document of this number.
    void answerOpenLate(int docid);
    // Leaves the bus, as a service that stops or is killed; its view goes too.
    void vanish();
    // A service of the same name, started anew.
    void comeBack();

    std::vector<Call> calls() const;
    // Waits for the count-th call of a method; its payload.
    std::string waitForCall(const std::string& place, int count = 1);
    // Whether the last call of a method would have started the service.
    bool mayStartIt(const std::string& place);
    // The bus name that it was sent to.
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
