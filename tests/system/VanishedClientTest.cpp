// SPDX-License-Identifier: Apache-2.0
// A client that is killed.
#include "client/lib/Calls.h"
#include "client/lib/DocumentNumber.h"
#include "tests/system/support/ClientFixture.h"
#include <lectern/CommonCalls.h>

#include <signal.h>

#include <cstdio>

namespace {

using namespace lectern;

class VanishedClientTest : public ClientTest {
protected:
    void openAndVanish() {
        Subprocess dying({VANISHING_CLIENT, bus->address(), sample("tour.docx")}, {},
                         folder.path() + "/dying");
        ASSERT_TRUE(eventually([&] { return dying.output().find('\n') != std::string::npos; }, 60'000))
            << dying.errors();
        ASSERT_EQ(std::sscanf(dying.output().c_str(), "%d %u", &docid, &state), 2);
        dying.signal(SIGKILL);
        ASSERT_TRUE(dying.wait(std::chrono::seconds(10)).has_value());
    }

    int docid = -1;
    unsigned int state = 0;
};

// The fixture checks that nothing is left when the service has stopped.
TEST_F(VanishedClientTest, LeavesItsDocumentToTheServiceAndOthersGoOn) {
    const Bus own = connect();
    const auto before = open(own, sample("tour.pptx"));
    ASSERT_TRUE(before);
    openAndVanish();
    EXPECT_EQ(docid, 1);
    ASSERT_FALSE(before->paint());
    const auto after = open(own, sample("tour.xlsx"));
    ASSERT_TRUE(after);
    EXPECT_EQ(DocumentNumber::of(*after), 2) << "the number is still taken";
    const auto properties = ask(own, docid, common::getDocProperties());
    ASSERT_TRUE(properties) << "it may have been a tool that makes a connection for each call";
    EXPECT_NE(properties->find("A Tour of the Harbour"), std::string::npos);
    drag(*after, 40);
    EXPECT_TRUE(hasInk(*after));
}

TEST_F(VanishedClientTest, ANewClientMayTakeItsPlaceUp) {
    openAndVanish();
    OpenOptions options;
    options.restoreFrom = state; // still attached by the service
    const auto next = open(connect(), sample("tour.docx"), options);
    ASSERT_TRUE(next);
    EXPECT_EQ(next->stateIdentifier(), state);
    EXPECT_TRUE(hasInk(*next));
}

} // namespace
