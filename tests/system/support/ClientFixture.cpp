// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/ClientFixture.h"

#include <set>

using namespace lectern;

Bus ClientTest::connect() const {
    return std::move(*Bus::connect(bus->address()));
}

std::unique_ptr<Document> ClientTest::open(const Bus& bus, const std::string& path, OpenOptions options) {
    options.manners = Manners::Classic;
    auto document = Document::open(bus, path, options);
    if (!document) {
        ADD_FAILURE() << document.error().text;
        return nullptr;
    }
    EXPECT_FALSE((*document)->paint());
    return std::move(*document);
}

void ClientTest::drag(Document& document, int rows) {
    const int from = document.frame().height() / 2 + rows / 2;
    const int x = document.frame().width() / 2;
    ASSERT_FALSE(document.penDown(x, from));
    for (int step = 1; step <= 4; ++step) {
        ASSERT_FALSE(document.penMove(x, from - rows * step / 4));
    }
    ASSERT_FALSE(document.penUp(x, from - rows));
    document.settle();
    ASSERT_FALSE(document.paint());
}

std::vector<uint32_t> ClientTest::picture(const Document& document) {
    const FrameBuffer& frame = document.frame();
    return {frame.pixels(), frame.pixels() + frame.width() * frame.height()};
}

bool ClientTest::hasInk(const Document& document) {
    const std::vector<uint32_t> pixels = picture(document);
    return std::set<uint32_t>(pixels.begin(), pixels.end()).size() > 4;
}

void Event::happen() {
    const std::lock_guard lock(mMutex);
    mHappened = true;
    mChanged.notify_all();
}

bool Event::wait() {
    std::unique_lock lock(mMutex);
    return mChanged.wait_for(lock, std::chrono::seconds(20), [this] { return mHappened; });
}
