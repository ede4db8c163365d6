// SPDX-License-Identifier: Apache-2.0
// Bounds of what clients can make the service hold.
#include "service/Limits.h"

#include "ClientSide.h"
#include "tests/fakes/word/FakeWordModule.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>

namespace {

using testing::SizeIs;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class LimitsTest : public ClientSideTest {
protected:
    void SetUp() override {
        ClientSideTest::SetUp();
        fakeWord().reset();
    }
    void TearDown() override {
        limits() = usual;
        ClientSideTest::TearDown();
    }
    // Expects the reply for a frame buffer that cannot be used, and nothing left behind.
    void expectRefused(const std::string& reason) {
        const size_t open = gDocuments.size();
        const ClientFrame another(SIZE);
        CaptureStderr();
        EXPECT_EQ(create("more.doc", another), NO_PARAMETER_TEXT);
        EXPECT_EQ(GetCapturedStderr(), "Document refused: " + reason + ".\n");
        EXPECT_THAT(gDocuments, SizeIs(open));
        EXPECT_EQ(another.attachments(), 1U);
    }
    static std::string named(int number) { return std::to_string(number) + ".doc"; }

    const Limits usual = limits();
};

TEST_F(LimitsTest, AreFarAboveOneDocumentOfAnySize) {
    EXPECT_GE(usual.documentsPerClient, 100U);
    EXPECT_GE(usual.documents, 4 * usual.documentsPerClient);
    EXPECT_GE(usual.bytesPerClient, uint64_t{512} << 20);
    EXPECT_GE(usual.bytes, uint64_t{1} << 30);
}

TEST_F(LimitsTest, AClientHasSoManyDocumentsAndOthersTheirOwn) {
    const ClientFrame frame(SIZE);
    limits().documentsPerClient = 2;
    expectCreated(0, named(0), frame);
    expectCreated(1, named(1), frame);
    expectRefused("the client has too many documents open");
    fakeHub.sender = ":1.2";
    expectCreated(2, named(2), frame);
    fakeHub.sender = ":1.1";
    destroy(0);
    expectCreated(3, named(3), frame);
}

TEST_F(LimitsTest, AllClientsTogetherHaveSoManyDocuments) {
    const ClientFrame frame(SIZE);
    limits().documents = 2;
    expectCreated(0, named(0), frame);
    fakeHub.sender = ":1.2";
    expectCreated(1, named(1), frame);
    fakeHub.sender = ":1.3";
    expectRefused("too many documents are open");
}

TEST_F(LimitsTest, TheFrameBufferOfTheClientAndTheLastFrameCount) {
    const ClientFrame frame(SIZE);
    limits().bytesPerClient = 2 * SIZE - 1;
    expectRefused("the client's pictures take too much memory");
    limits().bytesPerClient = 2 * SIZE;
    expectCreated(0, named(0), frame);
}

TEST_F(LimitsTest, TheWholeSegmentCountsAndNotOnlyTheFrame) {
    const ClientFrame large(4 * SIZE);
    limits().bytesPerClient = 3 * SIZE;
    CaptureStderr();
    EXPECT_EQ(create("a.doc", large), NO_PARAMETER_TEXT);
    EXPECT_EQ(GetCapturedStderr(), "Document refused: the client's pictures take too much memory.\n");
}

TEST_F(LimitsTest, SurfacesOfOpenDocumentsCount) {
    const ClientFrame frame(SIZE);
    limits().bytesPerClient = 4 * SIZE;
    expectCreated(0, named(0), frame);
    expectRefused("the client's pictures take too much memory");
    limits().bytesPerClient = 4 * SIZE + gDocuments[0].view->pictureBytes();
    expectCreated(1, named(1), frame);
}

TEST_F(LimitsTest, AllPicturesTogetherAreBounded) {
    const ClientFrame frame(SIZE);
    limits().bytes = 4 * SIZE;
    expectCreated(0, named(0), frame);
    fakeHub.sender = ":1.2";
    expectRefused("all pictures take too much memory");
}

TEST_F(LimitsTest, WithFewFileDescriptorsLeftNothingIsOpened) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const int next = fcntl(0, F_DUPFD_CLOEXEC, 0);
    ASSERT_GE(next, 0);
    close(next);
    const rlimit few{static_cast<rlim_t>(next) + 20, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
    expectRefused("too few file descriptors are left");
    setrlimit(RLIMIT_NOFILE, &before);
    const ClientFrame frame(SIZE);
    expectCreated(0, named(0), frame);
}

TEST_F(LimitsTest, TheSoftLimitOfDescriptorsIsRaisedToTheHardOneOrTo8192) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit low{256, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &low), 0);
    raiseDescriptorLimit();
    rlimit raised{};
    getrlimit(RLIMIT_NOFILE, &raised);
    EXPECT_EQ(raised.rlim_cur, std::min<rlim_t>(before.rlim_max, 8192));
    EXPECT_EQ(raised.rlim_max, before.rlim_max);
    setrlimit(RLIMIT_NOFILE, &before);
}

TEST_F(LimitsTest, TheEnvironmentChangesThemAndSenselessTextsDoNot) {
    setenv("LECTERN_MAX_DOCUMENTS", "7", 1);
    setenv("LECTERN_MAX_CLIENT_DOCUMENTS", "3", 1);
    setenv("LECTERN_MAX_PICTURE_MIB", "64", 1);
    setenv("LECTERN_MAX_CLIENT_PICTURE_MIB", "many", 1);
    const Limits changed;
    EXPECT_EQ(changed.documents, 7U);
    EXPECT_EQ(changed.documentsPerClient, 3U);
    EXPECT_EQ(changed.bytes, uint64_t{64} << 20);
    EXPECT_EQ(changed.bytesPerClient, usual.bytesPerClient);
    for (const char* name : {"LECTERN_MAX_DOCUMENTS", "LECTERN_MAX_CLIENT_DOCUMENTS",
                             "LECTERN_MAX_PICTURE_MIB", "LECTERN_MAX_CLIENT_PICTURE_MIB"}) {
        unsetenv(name);
    }
}

} // namespace
