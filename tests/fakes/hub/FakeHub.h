// SPDX-License-Identifier: Apache-2.0
// A hub without a bus: stores what a service registers, and lets a test call
// the registered methods and see their replies. One service per process.
#pragma once

#include "hub/hubservice.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct FakeHub {
    // All requests to the bus, in order: "register NAME", "category NAME", "attach".
    std::vector<std::string> requests;
    // The request that fails, and the message of its error.
    std::string failing;
    std::string failure = "the bus said no";
    // The message with which replies are refused; when empty, replies are sent.
    std::string replyFailure;
    // The name of the client that calls.
    std::string sender = ":1.1";
    // Called before each request is carried out, and before each look at a payload.
    std::function<void(const std::string& what)> onRequest;
    std::function<void()> onPayload;
    // Called for each reply before it counts as sent.
    std::function<void(const std::string& text)> onReply;

    // Registered categories and their method tables.
    std::vector<std::pair<std::string, const HubMethod*>> categories;
    GMainLoop* loop = nullptr;

    // A registered category's table; ends the test program when there is none.
    const HubMethod* tableOf(const std::string& category) const;
    // Calls a method of a registered category with a payload, which may be
    // null. Returns the reply, or nothing when the method sent none. Ends the
    // test program when there is no such method, when the method returns that
    // it did not handle the call, or when it replies more than once.
    std::optional<std::string> call(const std::string& category, const std::string& method,
                                    const char* payload);

    // Returns to the state before anything was registered.
    void reset() { *this = FakeHub(); }
};

extern FakeHub fakeHub;
