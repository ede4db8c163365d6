// SPDX-License-Identifier: Apache-2.0
// A bus without a bus: keeps what a service registers, and lets a test call its
// methods and see what they answer. One service per process.
#pragma once

#include "hub/hubservice.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct FakeHub {
    // Everything that was asked of the bus, in order: "register NAME",
    // "category NAME", "attach".
    std::vector<std::string> requests;
    // The request that fails, and with which message.
    std::string failing;
    std::string failure = "the bus said no";
    // The message of every refused reply; empty: replies are sent.
    std::string replyFailure;
    // Called for each request, before it is done, and for each look at a payload.
    std::function<void(const std::string& what)> onRequest;
    std::function<void()> onPayload;
    // Called for each reply, before it counts as sent.
    std::function<void(const std::string& text)> onReply;

    // Registered categories and their tables.
    std::vector<std::pair<std::string, const HubMethod*>> categories;
    GMainLoop* loop = nullptr;

    // A registered category's table; ends the test program when there is none.
    const HubMethod* tableOf(const std::string& category) const;
    // Calls a method of a registered category with a payload, null for none. The
    // reply, or nothing when the method sent none. Ends the test program when
    // there is no such method, when it says that it did not handle the call, or
    // when it replies more than once.
    std::optional<std::string> call(const std::string& category, const std::string& method,
                                    const char* payload);

    // As if nothing had been registered yet.
    void reset() { *this = FakeHub(); }
};

extern FakeHub fakeHub;
