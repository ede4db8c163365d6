// SPDX-License-Identifier: Apache-2.0
// The registry's numbering, and the bus method "destroy".
#include "ClientSide.h"
#include "tests/fakes/word/FakeWordModule.h"

#include <sched.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class DestroyTest : public ClientSideTest {};

TEST_F(DestroyTest, DocumentsExistWhileTheyHaveAView) {
    EXPECT_FALSE(DocumentExists(0));
    addView();
    addView();
    EXPECT_TRUE(DocumentExists(0));
    EXPECT_TRUE(DocumentExists(1));
    EXPECT_FALSE(DocumentExists(2));
    EXPECT_FALSE(DocumentExists(static_cast<unsigned int>(-1)));
    doDestroy(0);
    EXPECT_FALSE(DocumentExists(0));
    EXPECT_TRUE(DocumentExists(1));
}

TEST_F(DestroyTest, NumbersAreNotReusedWhileADocumentIsOpen) {
    const ClientFrame frame(SIZE);
    for (int docid = 0; docid < 3; ++docid) {
        expectCreated(docid, "a.doc", frame);
    }
    destroy(1);
    expectCreated(3, "a.doc", frame);
    destroy(0);
    destroy(2);
    EXPECT_THAT(gDocuments, SizeIs(4));
    destroy(3);
    EXPECT_THAT(gDocuments, IsEmpty());
    expectCreated(0, "a.doc", frame);
}

TEST_F(DestroyTest, SavesTheStateAndDeletesTheView) {
    addView();
    destroy(0);
    EXPECT_THAT(trace, ElementsAre("SaveStateToDataStore", "deleted"));
}

TEST_F(DestroyTest, DetachesTheFrameAndEmptiesTheRecord) {
    const ClientFrame frame(SIZE);
    create("a.doc", frame);
    create("b.doc", frame);
    EXPECT_EQ(frame.attachments(), 3U);
    destroy(0);
    EXPECT_EQ(frame.attachments(), 2U);
    const Documents& record = gDocuments[0];
    EXPECT_EQ(record.view, nullptr);
    EXPECT_EQ(record.shmid, 0U);
    EXPECT_EQ(record.size, 0);
    EXPECT_EQ(record.buffer, nullptr);
    EXPECT_EQ(record.status, nullptr);
    EXPECT_EQ(fakeWord().openDocuments, 1);
}

TEST_F(DestroyTest, ASegmentNumberedZeroIsNeverDetached) {
    // The first segment in a new namespace has this number.
    ASSERT_EQ(unshare(CLONE_NEWIPC), 0);
    ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    const ClientFrame frame(SIZE, shmget(IPC_PRIVATE, SIZE, IPC_CREAT | 0600));
    ASSERT_EQ(frame.id(), 0);
    create("a.doc", frame);
    create("b.doc", frame);
    const unsigned int* buffers[] = {gDocuments[0].buffer, gDocuments[1].buffer};
    destroy(0);
    EXPECT_EQ(gDocuments[0].view, nullptr);
    EXPECT_EQ(gDocuments[0].buffer, buffers[0]);
    EXPECT_EQ(gDocuments[0].size, SIZE);
    destroy(1);
    EXPECT_THAT(gDocuments, IsEmpty());
    EXPECT_EQ(frame.attachments(), 3U);
    for (const unsigned int* buffer : buffers) {
        EXPECT_EQ(shmdt(buffer), 0);
    }
}

TEST_F(DestroyTest, MessagesToTheViewAreDiscarded) {
    addView();
    addView();
    g_msgQueue.SendMessage(ServerClientMessage(addressOf(0), _INVALIDATED));
    g_msgQueue.SendMessage(ServerClientMessage(addressOf(1), _INVALIDATED));
    destroy(0);
    EXPECT_THAT(takeMessages(addressOf(0)), IsEmpty());
    EXPECT_THAT(takeMessages(addressOf(1)), SizeIs(1));
}

TEST_F(DestroyTest, TheDocidIsRequired) {
    EXPECT_EQ(call("/events", "destroy", "{}"), NO_DOCID_TEXT);
}

TEST_F(DestroyTest, UnknownDocumentsAreNoMatterAndNotAnswered) {
    addView();
    for (const int docid : {1, -1, 2147483647, -2147483647 - 1}) {
        destroy(docid);
    }
    EXPECT_TRUE(DocumentExists(0));
    addView();
    destroy(0);
    destroy(0);
    EXPECT_THAT(trace, ElementsAre("SaveStateToDataStore", "deleted"));
    EXPECT_THAT(gDocuments, SizeIs(2));
}

TEST_F(DestroyTest, EmptySlotsGoWhateverWasToBeDestroyed) {
    gDocuments.resize(3); // only empty entries
    destroy(42);
    EXPECT_THAT(gDocuments, IsEmpty());
}

TEST_F(DestroyTest, WithoutTheRegistryNothingHappens) {
    addView();
    {
        const StuckRegistry stuck;
        CaptureStderr();
        destroy(0);
        EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    }
    EXPECT_TRUE(DocumentExists(0));
}

} // namespace
