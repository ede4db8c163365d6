// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/FakeService.h"
#include <lectern/Bus.h>

#include <gmock/gmock.h>

#include <thread>

namespace {

using namespace lectern;
using namespace std::chrono_literals;
using testing::HasSubstr;

class BusTest : public testing::Test {
protected:
    BusTest() : mBus(std::move(*Bus::connect(mService.address()))) {}

    FakeService mService;
    Bus mBus;
};

TEST_F(BusTest, CarriesTheTextBothWays) {
    mService.answer("/common getMimeInfo", "");
    const auto reply = mBus.call("/common", "getMimeInfo", "{\"docid\": 1}");
    ASSERT_TRUE(reply) << reply.error().text;
    EXPECT_EQ(*reply, "");
    EXPECT_EQ(mService.calls().back(), (FakeService::Call{"/common getMimeInfo", "{\"docid\": 1}"}));
}

TEST_F(BusTest, MakesAnErrorOfAReplyWithAnErrorCode) {
    mService.answer("/ppt getSlideCount",
                    R"({"errorCode": "errWrongType", "errorText": "Not a PowerPoint document"})");
    const auto reply = mBus.call("/ppt", "getSlideCount", "{}");
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.error().kind, Error::Kind::Refused);
    EXPECT_EQ(reply.error().name, "errWrongType");
}

TEST_F(BusTest, WaitsNoLongerThanTold) {
    const auto reply = mBus.call("/events", "ping", "{}", {.timeout = 20ms});
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.error().kind, Error::Kind::TimedOut);
}

TEST_F(BusTest, EndsAWaitWhenStopped) {
    std::stop_source stop;
    std::thread stopper([&] {
        mService.waitForCall("/events ping");
        stop.request_stop();
    });
    const auto reply = mBus.call("/events", "ping", "{}", {.stop = stop.get_token()});
    stopper.join();
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.error().kind, Error::Kind::Cancelled);
}

TEST_F(BusTest, PostsWithoutWaitingForAnAnswer) {
    EXPECT_FALSE(mBus.post("/events", "ping", "{}"));
    EXPECT_EQ(mService.waitForCall("/events ping"), "{}");
}

TEST_F(BusTest, RefusesTextThatTheBusCannotCarry) {
    const auto reply = mBus.call("/common", "Search", "\xff");
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.error().kind, Error::Kind::Argument);
    EXPECT_TRUE(mBus.post("/events", "ping", "\xff"));
    EXPECT_TRUE(mService.calls().empty());
}

TEST_F(BusTest, KnowsWhetherTheServiceRuns) {
    EXPECT_TRUE(mBus.serviceRuns());
    EXPECT_TRUE(mBus.offersService());
    EXPECT_FALSE(mBus.isClosed());
}

TEST(BusWithoutService, OffersTheOneThatItCanStart) {
    const auto privateBus = PrivateBus::start();
    ASSERT_TRUE(privateBus) << privateBus.error().text;
    const auto bus = Bus::connect(privateBus->address());
    ASSERT_TRUE(bus);
    EXPECT_FALSE(bus->serviceRuns());
    EXPECT_TRUE(bus->offersService());
}

TEST(BusWithoutService, SaysThatTheServiceDoesNotStart) {
    const auto privateBus = PrivateBus::start(); // its service is /bin/false
    ASSERT_TRUE(privateBus) << privateBus.error().text;
    const auto bus = Bus::connect(privateBus->address());
    ASSERT_TRUE(bus);
    const auto reply = bus->call("/events", "ping", "{}");
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.error().kind, Error::Kind::Bus);
    EXPECT_THAT(reply.error().text, HasSubstr("did not start"));
}

TEST(BusAddress, ThatLeadsNowhereIsAnError) {
    const auto bus = Bus::connect("unix:path=/nonexistent/bus");
    ASSERT_FALSE(bus);
    EXPECT_EQ(bus.error().kind, Error::Kind::Bus);
    EXPECT_FALSE(Bus::connect("nonsense"));
}

TEST(LostBus, IsReportedByCalls) {
    auto privateBus = std::make_optional(std::move(*PrivateBus::start()));
    const auto bus = Bus::connect(privateBus->address());
    ASSERT_TRUE(bus);
    privateBus.reset();
    EXPECT_FALSE(bus->call("/events", "ping", "{}"));
    EXPECT_TRUE(bus->isClosed());
    EXPECT_FALSE(bus->serviceRuns());
}

} // namespace
