// SPDX-License-Identifier: Apache-2.0
#include "IpcTest.h"
#include "view/StateSegment.h"

#include <cerrno>
#include <vector>

namespace {

class StateSegmentIpc : public IpcTest {
protected:
    StateSegment segment;
};

TEST_F(StateSegmentIpc, HasNothingAtFirst) {
    EXPECT_EQ(segment.record(), nullptr);
    EXPECT_EQ(segment.id(), 0U);
}

TEST_F(StateSegmentIpc, AttachesWhatItIsGiven) {
    const unsigned int id = makeClientSegment(28);
    ASSERT_TRUE(segment.attach(id));
    EXPECT_EQ(segment.id(), id);
    EXPECT_EQ(segmentStatus(id).shm_nattch, 1U);
    segment.record()->scrollX = 4711;
    auto* other = static_cast<int*>(shmat(static_cast<int>(id), nullptr, 0));
    EXPECT_EQ(other[0], 4711);
    shmdt(other);
}

TEST_F(StateSegmentIpc, RefusesALargerSegment) {
    const unsigned int id = makeClientSegment(29);
    EXPECT_FALSE(segment.attach(id));
    EXPECT_EQ(segmentStatus(id).shm_nattch, 0U);
}

TEST_F(StateSegmentIpc, RefusesAndReportsASegmentThatAnotherUserMade) {
    const unsigned int id = makeClientSegment(28);
    shmid_ds passedOn = segmentStatus(id);
    passedOn.shm_perm.uid = 1; // an owner that is not this process's user
    if (shmctl(static_cast<int>(id), IPC_SET, &passedOn) != 0) {
        GTEST_SKIP() << "this user namespace has a single user";
    }
    testing::internal::CaptureStderr();
    EXPECT_FALSE(segment.attach(id));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("belongs to user"), std::string::npos);
    EXPECT_EQ(segment.record(), nullptr);
}

TEST_F(StateSegmentIpc, RefusesASegmentBelowTheRecordsSize) {
    const unsigned int id = makeClientSegment(27);
    EXPECT_FALSE(segment.attach(id));
    EXPECT_EQ(segment.record(), nullptr);
    EXPECT_EQ(segment.id(), 0U);
    EXPECT_EQ(segmentStatus(id).shm_nattch, 0U);
}

TEST_F(StateSegmentIpc, RefusesReservedIdentifiers) {
    std::vector<unsigned int> ids;
    while (ids.empty() || ids.back() < 100) {
        ids.push_back(makeSegment(28));
    }
    for (const unsigned int id : ids) {
        StateSegment any;
        EXPECT_EQ(any.attach(id), id > 99) << id;
    }
}

TEST_F(StateSegmentIpc, RefusesARemovedSegment) {
    const unsigned int id = makeClientSegment(28);
    shmctl(static_cast<int>(id), IPC_RMID, nullptr);
    EXPECT_FALSE(segment.attach(id));
    EXPECT_EQ(segment.record(), nullptr);
}

TEST_F(StateSegmentIpc, RefusesIdentifiersBeyondInt) {
    EXPECT_FALSE(segment.attach(0xFFFFFFFFU));
    EXPECT_FALSE(segment.attach(0x80000000U + makeClientSegment(28)));
}

TEST_F(StateSegmentIpc, OnlyDetachesWhatItWasGiven) {
    const unsigned int id = makeClientSegment(28);
    {
        StateSegment other;
        ASSERT_TRUE(other.attach(id));
    }
    EXPECT_EQ(segmentStatus(id).shm_nattch, 0U);
    EXPECT_EQ(segmentsInUse(), 1);
}

TEST_F(StateSegmentIpc, MakesOneOfARecordsSizeForEverybody) {
    ASSERT_TRUE(segment.create("/usr", 'x'));
    const shmid_ds status = segmentStatus(segment.id());
    EXPECT_EQ(status.shm_segsz, 28U);
    EXPECT_EQ(status.shm_perm.mode & 0777, 0666);
    EXPECT_EQ(status.shm_perm.__key, ftok("/usr", 'x'));
    EXPECT_EQ(status.shm_nattch, 1U);
    EXPECT_EQ(segment.record()->scale, 0.0);
}

TEST_F(StateSegmentIpc, TakesNoLowIdentifierInAFreshNamespace) {
    ASSERT_EQ(makeSegment(28), 0U); // as after boot
    ASSERT_TRUE(segment.create("/usr", 'x'));
    EXPECT_GE(segment.id(), 4096U);
    EXPECT_EQ(segmentsInUse(), 2); // no placeholder is left
}

TEST_F(StateSegmentIpc, GetsPastManySegmentsInUse) {
    for (int i = 0; i < 300; ++i) {
        makeSegment(28);
    }
    ASSERT_TRUE(segment.create("/usr", 'x'));
    EXPECT_GE(segment.id(), 4096U);
    EXPECT_EQ(segmentsInUse(), 301);
}

TEST_F(StateSegmentIpc, MakesAPrivateOneWhereTheKeyIsTaken) {
    ASSERT_TRUE(segment.create("/usr", 'x'));
    StateSegment second;
    ASSERT_TRUE(second.create("/usr", 'x'));
    EXPECT_NE(second.id(), segment.id());
    EXPECT_GE(second.id(), 4096U);
    EXPECT_EQ(segmentStatus(second.id()).shm_perm.__key, IPC_PRIVATE);
}

TEST_F(StateSegmentIpc, MakesAPrivateOneWithoutAKeyFile) {
    ASSERT_TRUE(segment.create("/no/such/path", 'x'));
    EXPECT_EQ(segmentStatus(segment.id()).shm_perm.__key, IPC_PRIVATE);
}

TEST_F(StateSegmentIpc, LeavesNothingOfASegmentThatNobodyElseAttached) {
    {
        StateSegment made;
        ASSERT_TRUE(made.create("/usr", 'x'));
    }
    EXPECT_EQ(segmentsInUse(), 0);
}

TEST_F(StateSegmentIpc, LeavesAMarkedSegmentToWhoStillHasIt) {
    void* client = nullptr;
    unsigned int id = 0;
    {
        StateSegment made;
        ASSERT_TRUE(made.create("/usr", 'x'));
        id = made.id();
        client = shmat(static_cast<int>(id), nullptr, 0);
        shmctl(static_cast<int>(id), IPC_RMID, nullptr);
        made.record()->scrollY = 99;
    }
    EXPECT_EQ(segmentStatus(id).shm_nattch, 1U);
    EXPECT_EQ(static_cast<StateRecord*>(client)->scrollY, 99);
    // A later view can still attach the segment.
    EXPECT_TRUE(segment.attach(id));
    shmdt(client);
}

TEST_F(StateSegmentIpc, FailsClearlyWhenTheSystemHasNoSegments) {
    while (makeSegment(28) != static_cast<unsigned int>(-1)) {
    }
    ASSERT_EQ(errno, ENOSPC);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(segment.create("/usr", 'x'));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("shmget"), std::string::npos);
    EXPECT_EQ(segment.record(), nullptr);
    EXPECT_EQ(segment.id(), 0U);
}

} // namespace
