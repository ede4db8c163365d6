// SPDX-License-Identifier: Apache-2.0
// The bus method "create".
#include "ClientSide.h"
#include "tests/fakes/sheet/FakeSheetModule.h"
#include "tests/fakes/slides/FakeSlideModule.h"
#include "tests/fakes/word/FakeWordModule.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr char kUnknownKind[] = R"({ "errorCode": "errDocType", "errorText": "doctype is unkown" })";

class CreateTest : public ClientSideTest {
protected:
    void SetUp() override {
        ClientSideTest::SetUp();
        fakeWord().reset();
    }
    // An answer that leaves nothing behind, and the reason told for it.
    void expectRefused(const std::string& members, const std::string& reply, const std::string& reason,
                       const ClientFrame& frame) {
        CaptureStderr();
        EXPECT_EQ(create(members), reply) << members;
        EXPECT_EQ(GetCapturedStderr(), reason) << members;
        EXPECT_TRUE(gDocuments.empty());
        EXPECT_EQ(frame.attachments(), 1U);
        EXPECT_EQ(waiting(), 0U);
        EXPECT_EQ(fakeWord().openDocuments, 0);
    }
};

TEST_F(CreateTest, AnswersTheDocidTheKindAndTheDataStoreAsText) {
    const ClientFrame frame(kSize);
    const auto reply = create("letter.doc", frame);
    ASSERT_THAT(gDocuments, SizeIs(1));
    EXPECT_EQ(reply, replyFor(0));
    EXPECT_GE(dataStoreOf(0), 4096U);
    EXPECT_EQ(frame.attachments(), 2U);
    const Documents& record = gDocuments[0];
    EXPECT_EQ(record.shmid, static_cast<unsigned int>(frame.id()));
    EXPECT_EQ(record.size, kSize);
    EXPECT_EQ(reinterpret_cast<unsigned char*>(record.buffer) + kSize - 1, record.status);
}

TEST_F(CreateTest, MarksTheFrameWithTheDocidAndTheDataStore) {
    const ClientFrame first(kSize);
    const ClientFrame second(kSize + 12);
    create("a.doc", first);
    create("b.doc", second);
    EXPECT_EQ(first.pixel(0), dataStoreOf(0));
    EXPECT_EQ(first.status(), 0);
    EXPECT_EQ(second.pixel(0), dataStoreOf(1));
    EXPECT_EQ(second.status(), 1);
}

TEST_F(CreateTest, OfADocidTheStatusHasTheLowByte) {
    for (int i = 0; i < 258; ++i) {
        addView();
    }
    const ClientFrame frame(kSize);
    create("a.doc", frame);
    EXPECT_EQ(frame.status(), 258 & 0xFF);
}

TEST_F(CreateTest, TheReplyComesBeforeTheOpenedMessageAndAfterTheMarks) {
    const ClientFrame frame(kSize);
    bool replied = false;
    fakeHub.onReply = [&](const std::string& text) {
        replied = true;
        EXPECT_EQ(waiting(), 0U);
        EXPECT_THAT(text, HasSubstr('"' + std::to_string(frame.pixel(0)) + '"'));
    };
    create("a.doc", frame);
    ASSERT_TRUE(replied);
    const auto messages = takeMessages(static_cast<long>(dataStoreOf(0)));
    ASSERT_THAT(messages, SizeIs(1));
    EXPECT_EQ(messages[0].id, _OPENED);
    EXPECT_EQ(messages[0].value, 0);
    EXPECT_EQ(messages[0].extra, 0);
}

TEST_F(CreateTest, AFileThatDoesNotOpenIsKeptAndReportedByMessage) {
    const ClientFrame frame(kSize);
    create("a.doc", frame);
    expectCreated(1, "/x/code-26.docx", frame);
    const auto messages = takeMessages(static_cast<long>(dataStoreOf(1)));
    ASSERT_THAT(messages, SizeIs(1));
    EXPECT_EQ(messages[0].id, _OPENED);
    EXPECT_EQ(messages[0].value, 1);
    EXPECT_EQ(messages[0].extra, 26);
    EXPECT_THAT(systemCalls.takeLog(), ElementsAre("<5> Error 0x1a opening '/x/code-26.docx'."));
    EXPECT_TRUE(DocumentExists(1));
}

TEST_F(CreateTest, OpensTheFileWithThePasswordOrNone) {
    const ClientFrame frame(kSize);
    create("/d/a.doc", frame);
    EXPECT_THAT(fakeWord().takeCalls(), Contains(HasSubstr(R"(wtg_open_file("/d/a.doc", "",)")));
    create(payloadOf("/d/b.txt", frame) + R"(, "password": "secret")");
    EXPECT_THAT(fakeWord().takeCalls(), Contains(HasSubstr(R"(wtg_open_file("/d/b.txt", "secret",)")));
    EXPECT_THAT(systemCalls.takeLog(), IsEmpty());
}

TEST_F(CreateTest, TheDataStoreVanishesWithItsLastAttachment) {
    const ClientFrame frame(kSize);
    create("a.doc", frame);
    shmid_ds status = {};
    ASSERT_EQ(shmctl(static_cast<int>(dataStoreOf(0)), IPC_STAT, &status), 0);
    EXPECT_EQ(status.shm_nattch, 1U);
    EXPECT_NE(status.shm_perm.mode & SHM_DEST, 0);
    destroy(0);
    EXPECT_EQ(segments(), segmentsBefore + 1) << "the frame's only";
}

TEST_F(CreateTest, TheStateOfAnEarlierViewIsTakenOver) {
    const ClientFrame frame(kSize);
    create("a.doc", frame);
    const unsigned int dataStore = dataStoreOf(0);
    const void* kept = shmat(static_cast<int>(dataStore), nullptr, 0);
    destroy(0);
    expectCreated(0, payloadOf("a.doc", frame, kWidth, kHeight, "\"" + std::to_string(dataStore) + "\""));
    EXPECT_EQ(dataStoreOf(0), dataStore);
    shmdt(kept);
}

TEST_F(CreateTest, EveryParameterButThePasswordIsRequired) {
    const ClientFrame frame(kSize);
    for (const char* key : {"filename", "width", "height", "shmid", "size", "datastoreshmid"}) {
        std::string members = payloadOf("a.doc", frame);
        members.replace(members.find(key), 1, "_");
        expectRefused(members, kNoParameterText, "", frame);
    }
}

TEST_F(CreateTest, UnknownKindsAreRefusedWhateverTheFrame) {
    const ClientFrame frame(kSize);
    for (const char* name : {"a.tar", "a", "", "a.doc/b", "a."}) {
        expectRefused(payloadOf(name, frame), kUnknownKind, "", frame);
        expectRefused(payloadOf(name, frame, -1), kUnknownKind, "", frame);
    }
}

TEST_F(CreateTest, PresentationsAreOfKindThree) {
    fakeSlides().reset();
    const ClientFrame frame(kSize);
    const auto reply = create("/d/talk.PPTX", frame);
    EXPECT_EQ(reply, R"({ "docid": 0, "doctype": 3, "datastoreshmid": ")" + std::to_string(dataStoreOf(0)) +
                         R"(" })");
    EXPECT_THAT(fakeSlides().takeCalls(), Contains(HasSubstr(R"(sstg_open_file("/d/talk.PPTX", )")));
    create("talk.ppt", frame);
    EXPECT_EQ(gDocuments[1].view->docType(), _PPT);
    destroy(1);
    destroy(0);
    EXPECT_EQ(fakeSlides().openDocuments, 0);
}

TEST_F(CreateTest, SpreadsheetsHaveTheirOwnView) {
    fakeSheet().reset();
    const ClientFrame frame(kSize);
    const auto reply = create("/d/book.XLSX", frame);
    EXPECT_EQ(reply, R"({ "docid": 0, "doctype": 1, "datastoreshmid": ")" + std::to_string(dataStoreOf(0)) +
                         R"(" })");
    EXPECT_THAT(fakeSheet().takeCalls(), Contains(HasSubstr(R"(stg_open_file("/d/book.XLSX", )")));
    create("book.xls", frame);
    EXPECT_EQ(gDocuments[1].view->docType(), _EXCEL);
    destroy(1);
    destroy(0);
    EXPECT_EQ(fakeSheet().openDocuments, 0);
}

TEST_F(CreateTest, FramesThatCannotBeAreRefusedWithAReason) {
    const ClientFrame frame(kSize);
    const std::string range = "Frame buffer refused: width or height out of range.\n";
    for (const int side : {0, -1, 16385, 2147483647}) {
        expectRefused(payloadOf("a.doc", frame, side, 1), kNoParameterText, range, frame);
        expectRefused(payloadOf("a.doc", frame, 1, side), kNoParameterText, range, frame);
    }
    expectRefused(payloadOf("a.doc", frame, kWidth + 1), kNoParameterText,
                  "Frame buffer refused: frame larger than size.\n", frame);
    // 16384 * 16384 * 4 does not fit into 32 bits.
    expectRefused(payloadOf("a.doc", frame, 16384, 16384), kNoParameterText,
                  "Frame buffer refused: frame larger than size.\n", frame);
}

TEST_F(CreateTest, SegmentsThatCannotBeAttachedAreRefusedWithAReason) {
    const ClientFrame frame(kSize);
    std::string members = payloadOf("a.doc", frame);
    const std::string size = std::to_string(kSize);
    members.replace(members.find(size), size.size(), std::to_string(kSize + 1));
    expectRefused(members, kNoParameterText, "Frame buffer refused: size larger than the segment.\n", frame);
    const std::string id = "\"shmid\": ";
    members = payloadOf("a.doc", frame);
    members.replace(members.find(id), id.size(), id + "9");
    expectRefused(members, kNoParameterText, "Frame buffer refused: no such segment.\n", frame);
}

TEST_F(CreateTest, TheSegmentsIdentifierMayBeTextInAnyBase) {
    const ClientFrame frame(kSize);
    std::string members = payloadOf("a.doc", frame);
    char hexadecimal[32];
    std::snprintf(hexadecimal, sizeof hexadecimal, R"("shmid": "0x%x")",
                  static_cast<unsigned int>(frame.id()));
    const std::string plain = R"("shmid": )" + std::to_string(frame.id());
    members.replace(members.find(plain), plain.size(), hexadecimal);
    expectCreated(0, members);
}

TEST_F(CreateTest, WithoutTheRegistryThereIsNoReplyAndNothingIsKept) {
    const ClientFrame frame(kSize);
    const StuckRegistry stuck;
    CaptureStderr();
    EXPECT_EQ(create("a.doc", frame), std::nullopt);
    EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    EXPECT_EQ(frame.attachments(), 1U);
    EXPECT_EQ(create("\"a\": 1"), kNoParameterText) << "parameters are checked before";
}

TEST_F(CreateTest, WithoutMemoryForTheReplyThereIsNoneAndNoMessage) {
    const ClientFrame frame(kSize);
    systemCalls.noJsonObjects = true;
    fakeWord().results["wtg_open_file"] = 3;
    EXPECT_EQ(create("a.doc", frame), std::nullopt);
    systemCalls.noJsonObjects = false;
    EXPECT_EQ(waiting(), 0U);
    EXPECT_THAT(systemCalls.takeLog(), IsEmpty());
    EXPECT_TRUE(DocumentExists(0));
    shmctl(static_cast<int>(dataStoreOf(0)), IPC_RMID, nullptr);
}

TEST_F(CreateTest, PaintAnswersToAnEarlierDocumentOfTheNumberAreDiscarded) {
    const ClientFrame frame(kSize);
    g_msgQueue.SendPaintDone(0, 0);
    g_msgQueue.SendPaintDone(1, 0);
    create("a.doc", frame);
    EXPECT_THAT(takeMessages(101), IsEmpty());
    EXPECT_THAT(takeMessages(102), SizeIs(1));
}

TEST_F(CreateTest, AFailedMessageChangesNothingElse) {
    const ClientFrame frame(kSize);
    g_msgQueue.Remove();
    CaptureStderr();
    expectCreated(0, "a.doc", frame);
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\n");
}

} // namespace
