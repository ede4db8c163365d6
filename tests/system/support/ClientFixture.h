// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/ServiceFixture.h"
#include <lectern/Document.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

// Tests that use the real service through the client library.
class ClientTest : public ServiceTest {
protected:
    // Another client with its own connection.
    lectern::Bus connect() const;
    // Opens a document with classic manners; when that fails, fails the test and returns
    // null.
    static std::unique_ptr<lectern::Document> open(const lectern::Bus& bus, const std::string& path,
                                                   lectern::OpenOptions options = {});
    // Drags with a finger in steps, then paints; rows > 0 moves down.
    static void drag(lectern::Document& document, int rows);
    static std::vector<uint32_t> picture(const lectern::Document& document);
    static bool hasInk(const lectern::Document& document);
};

// An event on another thread that a test can wait for.
class Event {
public:
    void happen();
    // Returns false when it does not happen within 20 s.
    bool wait();

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mHappened = false;
};
