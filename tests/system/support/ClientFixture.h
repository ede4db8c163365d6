// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/ServiceFixture.h"
#include <lectern/Document.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

// The real service, used through the client library.
class ClientTest : public ServiceTest {
protected:
    // Another client: a connection of its own.
    lectern::Bus connect() const;
    // Fails the test, and gives null, when the document does not open.
    static std::unique_ptr<lectern::Document> open(const lectern::Bus& bus, const std::string& path,
                                                   lectern::OpenOptions options = {});
    // A drag by a finger, in steps, and a paint when it is over; rows > 0: down.
    static void drag(lectern::Document& document, int rows);
    static std::vector<uint32_t> picture(const lectern::Document& document);
    static bool hasInk(const lectern::Document& document);
};

// A thing that happens on another thread, waited for.
class Event {
public:
    void happen();
    // False when it does not happen within 20 s.
    bool wait();

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mHappened = false;
};
