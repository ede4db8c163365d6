// SPDX-License-Identifier: Apache-2.0
// The bus method "create".
#include "ClientSide.h"
#include "modules/Singleton.h"
#include "modules/WTGFunc.h"
#include "service/RenderWorker.h"
#include "tests/fakes/sheet/FakeSheetModule.h"
#include "tests/fakes/slides/FakeSlideModule.h"
#include "tests/fakes/word/FakeWordModule.h"

#include <sched.h>

#include <cstring>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr char UNKNOWN_KIND[] = R"({ "errorCode": "errDocType", "errorText": "doctype is unkown" })";

class CreateTest : public ClientSideTest {
protected:
    void SetUp() override {
        ClientSideTest::SetUp();
        fakeWord().reset();
    }
    // Expects an error reply with the reason, and nothing left behind.
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
    // Opens documents of another kind with the module of this control.
    template<class Control>
    void expectOwnView(Control& control, const std::string& name, const std::string& call,
                       const std::string& second, int kind) {
        control.reset();
        const ClientFrame frame(SIZE);
        const auto reply = create(name.c_str(), frame);
        EXPECT_EQ(reply, R"({ "docid": 0, "doctype": )" + std::to_string(kind) + R"(, "datastoreshmid": ")" +
                             std::to_string(dataStoreOf(0)) + R"(" })");
        EXPECT_THAT(control.takeCalls(), Contains(HasSubstr(call)));
        create(second.c_str(), frame);
        EXPECT_EQ(gDocuments[1].view->docType(), kind);
        destroy(1);
        destroy(0);
        EXPECT_EQ(control.openDocuments, 0);
    }
};

TEST_F(CreateTest, AnswersTheDocidTheKindAndTheDataStoreAsText) {
    const ClientFrame frame(SIZE);
    const auto reply = create("letter.doc", frame);
    ASSERT_THAT(gDocuments, SizeIs(1));
    EXPECT_EQ(reply, replyFor(0));
    EXPECT_GE(dataStoreOf(0), 4096U);
    EXPECT_EQ(frame.attachments(), 2U);
    const Documents& record = gDocuments[0];
    EXPECT_EQ(record.shmid, static_cast<unsigned int>(frame.id()));
    EXPECT_EQ(record.size, SIZE);
    EXPECT_EQ(reinterpret_cast<unsigned char*>(record.buffer) + SIZE - 1, record.status);
}

TEST_F(CreateTest, MarksTheFrameWithTheDocidAndTheDataStore) {
    const ClientFrame first(SIZE);
    const ClientFrame second(SIZE + 12);
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
    const ClientFrame frame(SIZE);
    create("a.doc", frame);
    EXPECT_EQ(frame.status(), 258 & 0xFF);
}

TEST_F(CreateTest, TheReplyComesBeforeTheOpenedMessageAndAfterTheMarks) {
    ClientFrame frame(SIZE);
    frame.setStatus(99);
    bool replied = false;
    fakeHub.onReply = [&](const std::string& text) {
        replied = true;
        EXPECT_EQ(waiting(), 0U);
        EXPECT_TRUE(registryIsHeld());
        EXPECT_EQ(frame.status(), 0);
        shmid_ds status = {};
        ASSERT_EQ(shmctl(static_cast<int>(frame.pixel(0)), IPC_STAT, &status), 0);
        EXPECT_NE(status.shm_perm.mode & SHM_DEST, 0);
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
    const ClientFrame frame(SIZE);
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

TEST_F(CreateTest, AFailedOpenIsLoggedAfterTheReplyAndBeforeTheMessage) {
    const ClientFrame frame(SIZE);
    fakeHub.onReply = [](const std::string&) { EXPECT_THAT(systemCalls.takeLog(), IsEmpty()); };
    bool sent = false;
    systemCalls.onSend = [&](long type) {
        sent = true;
        EXPECT_EQ(type, static_cast<long>(dataStoreOf(0)));
        EXPECT_THAT(systemCalls.takeLog(), SizeIs(1));
    };
    expectCreated(0, "/x/code-26.docx", frame);
    EXPECT_TRUE(sent);
}

TEST_F(CreateTest, TheFrameIsAttachedBeforeTheRegistryIsLocked) {
    const ClientFrame frame(SIZE);
    bool attached = false;
    systemCalls.onFrameAttach = [&] {
        attached = true;
        EXPECT_FALSE(registryIsHeld());
    };
    expectCreated(0, "a.doc", frame);
    EXPECT_TRUE(attached);
}

TEST_F(CreateTest, ASecondViewOfAKindLeavesTheModulesTableAlone) {
    ClientFrame frame(SIZE);
    create("a.doc", frame);
    const WTGFunc before = Singleton<WTGFunc>::Instance();
    create("b.doc", frame);
    EXPECT_EQ(std::memcmp(&Singleton<WTGFunc>::Instance(), &before, sizeof before), 0);
    destroy(0);
    EXPECT_TRUE(serveMessage(ClientServerMessage(_PAINT, 1)));
    EXPECT_EQ(frame.pixel(WIDTH), fakeWordPixel(1, 0)) << "the other one works on";
}

TEST_F(CreateTest, EveryCallOnADocumentThatDidNotOpenIsSurvived) {
    const ClientFrame frame(SIZE);
    expectCreated(0, "/x/code-8.docx", frame);
    const std::string payload = R"({"docid": 0, "search": "x", "xCoord": 5, "yCoord": 5, "chr": 1,)"
                                R"( "modifiers": 0, "wideMode": true})";
    for (const std::string category : {"/common", "/events", "/word"}) {
        for (const HubMethod* method = fakeHub.tableOf(category); method->name != nullptr; ++method) {
            const std::string name = method->name;
            if (name != "create" && name != "destroy" && name != "ping") {
                const auto reply = call(category, name, payload);
                ASSERT_TRUE(reply) << name;
                EXPECT_THAT(*reply, testing::Not(HasSubstr("errorCode"))) << name;
            }
        }
    }
    EXPECT_EQ(call("/common", "Search", payload), R"({ "resultcount": 0 })");
    for (long type = _PAINT; type <= _WIDE_MODE; ++type) {
        EXPECT_TRUE(serveMessage(ClientServerMessage(type, 0)));
    }
    EXPECT_THAT(takeMessages(101), SizeIs(1)) << "the paint";
}

TEST_F(CreateTest, AViewWithoutADataStoreTakesNobodysSegmentDown) {
    // The first segment in a new namespace has number 0, which no data store has.
    ASSERT_EQ(unshare(CLONE_NEWIPC), 0);
    ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    const ClientFrame other(SIZE, shmget(IPC_PRIVATE, SIZE, IPC_CREAT | 0600));
    ASSERT_EQ(other.id(), 0);
    const ClientFrame frame(SIZE);
    systemCalls.noSegments = true;
    CaptureStderr();
    expectCreated(0, "a.doc", frame);
    EXPECT_EQ(GetCapturedStderr(),
              "shmget: No space left on device\nFailure sending messages: Invalid argument\n");
    systemCalls.noSegments = false;
    EXPECT_EQ(dataStoreOf(0), 0U);
    shmid_ds status = {};
    ASSERT_EQ(shmctl(other.id(), IPC_STAT, &status), 0);
    EXPECT_EQ(status.shm_perm.mode & SHM_DEST, 0);
}

TEST_F(CreateTest, OpensTheFileWithThePasswordOrNone) {
    const ClientFrame frame(SIZE);
    create("/d/a.doc", frame);
    EXPECT_THAT(fakeWord().takeCalls(), Contains(HasSubstr(R"(wtg_open_file("/d/a.doc", "",)")));
    create(payloadOf("/d/b.txt", frame) + R"(, "password": "secret")");
    EXPECT_THAT(fakeWord().takeCalls(), Contains(HasSubstr(R"(wtg_open_file("/d/b.txt", "secret",)")));
    EXPECT_THAT(systemCalls.takeLog(), IsEmpty());
}

TEST_F(CreateTest, TheDataStoreVanishesWithItsLastAttachment) {
    const ClientFrame frame(SIZE);
    create("a.doc", frame);
    shmid_ds status = {};
    ASSERT_EQ(shmctl(static_cast<int>(dataStoreOf(0)), IPC_STAT, &status), 0);
    EXPECT_EQ(status.shm_nattch, 1U);
    EXPECT_NE(status.shm_perm.mode & SHM_DEST, 0);
    destroy(0);
    EXPECT_EQ(segments(), segmentsBefore + 1) << "the frame's only";
}

TEST_F(CreateTest, TheStateOfAnEarlierViewIsTakenOver) {
    const ClientFrame frame(SIZE);
    create("a.doc", frame);
    const unsigned int dataStore = dataStoreOf(0);
    const void* kept = shmat(static_cast<int>(dataStore), nullptr, 0);
    destroy(0);
    expectCreated(0, payloadOf("a.doc", frame, WIDTH, HEIGHT, "\"" + std::to_string(dataStore) + "\""));
    EXPECT_EQ(dataStoreOf(0), dataStore);
    shmdt(kept);
}

TEST_F(CreateTest, EveryParameterButThePasswordIsRequired) {
    const ClientFrame frame(SIZE);
    for (const char* key : {"filename", "width", "height", "shmid", "size", "datastoreshmid"}) {
        std::string members = payloadOf("a.doc", frame);
        members.replace(members.find(key), 1, "_");
        expectRefused(members, NO_PARAMETER_TEXT, "", frame);
    }
}

TEST_F(CreateTest, UnknownKindsAreRefusedWhateverTheFrame) {
    const ClientFrame frame(SIZE);
    for (const char* name : {"a.tar", "a", "", "a.doc/b", "a."}) {
        expectRefused(payloadOf(name, frame), UNKNOWN_KIND, "", frame);
        expectRefused(payloadOf(name, frame, -1), UNKNOWN_KIND, "", frame);
    }
}

TEST_F(CreateTest, PresentationsAreOfKindThree) {
    expectOwnView(fakeSlides(), "/d/talk.PPTX", R"(sstg_open_file("/d/talk.PPTX", )", "talk.ppt", _PPT);
    static_assert(_PPT == 3);
}

TEST_F(CreateTest, SpreadsheetsHaveTheirOwnView) {
    expectOwnView(fakeSheet(), "/d/book.XLSX", R"(stg_open_file("/d/book.XLSX", )", "book.xls", _EXCEL);
    static_assert(_EXCEL == 1);
}

TEST_F(CreateTest, FramesThatCannotBeAreRefusedWithAReason) {
    const ClientFrame frame(SIZE);
    const std::string range = "Frame buffer refused: width or height out of range.\n";
    for (const int side : {0, -1, 16385, 2147483647}) {
        expectRefused(payloadOf("a.doc", frame, side, 1), NO_PARAMETER_TEXT, range, frame);
        expectRefused(payloadOf("a.doc", frame, 1, side), NO_PARAMETER_TEXT, range, frame);
    }
    expectRefused(payloadOf("a.doc", frame, WIDTH + 1), NO_PARAMETER_TEXT,
                  "Frame buffer refused: frame larger than size.\n", frame);
    // 16384 * 16384 * 4 does not fit into 32 bits.
    expectRefused(payloadOf("a.doc", frame, 16384, 16384), NO_PARAMETER_TEXT,
                  "Frame buffer refused: frame larger than size.\n", frame);
}

TEST_F(CreateTest, SegmentsThatCannotBeAttachedAreRefusedWithAReason) {
    const ClientFrame frame(SIZE);
    std::string members = payloadOf("a.doc", frame);
    const std::string size = std::to_string(SIZE);
    members.replace(members.find(size), size.size(), std::to_string(SIZE + 1));
    expectRefused(members, NO_PARAMETER_TEXT, "Frame buffer refused: size larger than the segment.\n", frame);
    const std::string id = "\"shmid\": ";
    members = payloadOf("a.doc", frame);
    members.replace(members.find(id), id.size(), id + "9");
    expectRefused(members, NO_PARAMETER_TEXT, "Frame buffer refused: no such segment.\n", frame);
}

TEST_F(CreateTest, TheSegmentsIdentifierMayBeTextInAnyBase) {
    const ClientFrame frame(SIZE);
    std::string members = payloadOf("a.doc", frame);
    char hexadecimal[32];
    std::snprintf(hexadecimal, sizeof hexadecimal, R"("shmid": "0x%x")",
                  static_cast<unsigned int>(frame.id()));
    const std::string plain = R"("shmid": )" + std::to_string(frame.id());
    members.replace(members.find(plain), plain.size(), hexadecimal);
    expectCreated(0, members);
}

TEST_F(CreateTest, WithoutTheRegistryThereIsNoReplyAndNothingIsKept) {
    const ClientFrame frame(SIZE);
    const StuckRegistry stuck;
    CaptureStderr();
    EXPECT_EQ(create("a.doc", frame), std::nullopt);
    EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    EXPECT_EQ(frame.attachments(), 1U);
    EXPECT_EQ(create("\"a\": 1"), NO_PARAMETER_TEXT) << "parameters are checked before";
}

TEST_F(CreateTest, WithoutMemoryForTheReplyThereIsNoneAndNeitherMarksNorMessage) {
    ClientFrame frame(SIZE);
    frame.setStatus(99);
    systemCalls.noJsonObjects = true;
    fakeWord().results["wtg_open_file"] = 3;
    EXPECT_EQ(create("a.doc", frame), std::nullopt);
    systemCalls.noJsonObjects = false;
    EXPECT_EQ(waiting(), 0U);
    EXPECT_THAT(systemCalls.takeLog(), IsEmpty());
    EXPECT_TRUE(DocumentExists(0));
    EXPECT_EQ(frame.pixel(0), 0U);
    EXPECT_EQ(frame.status(), 99);
    shmctl(static_cast<int>(dataStoreOf(0)), IPC_RMID, nullptr);
}

TEST_F(CreateTest, PaintAnswersToAnEarlierDocumentOfTheNumberAreDiscarded) {
    const ClientFrame frame(SIZE);
    g_msgQueue.SendPaintDone(0, 0);
    g_msgQueue.SendPaintDone(1, 0);
    create("a.doc", frame);
    EXPECT_THAT(takeMessages(101), IsEmpty());
    EXPECT_THAT(takeMessages(102), SizeIs(1));
}

TEST_F(CreateTest, ARegistryThatCannotBeUnlockedIsReported) {
    const ClientFrame frame(SIZE);
    systemCalls.failingUnlock = &gDocumentsMutex;
    CaptureStderr();
    expectCreated(0, "a.doc", frame);
    EXPECT_EQ(GetCapturedStderr(), "Unable to release mutex: 1.");
    CaptureStderr();
    destroy(0);
    EXPECT_EQ(GetCapturedStderr(), "Unable to release mutex: 1.");
}

TEST_F(CreateTest, AFailedMessageChangesNothingElse) {
    const ClientFrame frame(SIZE);
    g_msgQueue.Remove();
    CaptureStderr();
    expectCreated(0, "a.doc", frame);
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\n");
}

} // namespace
