// SPDX-License-Identifier: Apache-2.0
// The state record, as every kind of view keeps it: each kind's program runs
// these tests, and its own for the words of the record that mean something else there.
#pragma once

#include "tests/unit/view/ViewTest.h"

#include <sys/shm.h>

// `Kind` is a kind's fixture with
//   KEY_PATH        of which the segment's key is made
//   FIRST_SCALE, FIRST_LEVEL   of a view without a document
//   openLong()      a view of a document with room to move
//   goElsewhere()   moves that view to where a paint leaves it
//   place()         all that a new view is to find again, in a comparable form
template<typename Kind>
class StateRecordTest : public Kind {};
TYPED_TEST_SUITE_P(StateRecordTest);

TYPED_TEST_P(StateRecordTest, NewViewMakesASegmentAndSavesItsState) {
    const auto view = this->makeView();
    EXPECT_GE(view->dataStoreShmId(), 4096U);
    const shmid_ds status = this->segmentStatus(view->dataStoreShmId());
    EXPECT_EQ(status.shm_segsz, 28U);
    EXPECT_EQ(status.shm_perm.mode & 0777, 0666);
    // The key is made of a path and the view's address.
    const int project = static_cast<int>(reinterpret_cast<uintptr_t>(view.get()) & 0xFF);
    EXPECT_EQ(status.shm_perm.__key, ftok(TypeParam::KEY_PATH, project));
    ASSERT_NE(view->mDataStore, nullptr);
    EXPECT_EQ(view->mDataStore->scale, TypeParam::FIRST_SCALE);
    EXPECT_EQ(view->mDataStore->scaleLevel, TypeParam::FIRST_LEVEL);
    EXPECT_EQ(view->mDataStore->extra[0], 0);
    EXPECT_EQ(view->mDataStore->extra[1], 0);
}

TYPED_TEST_P(StateRecordTest, UnusableSegmentCountsAsNone) {
    const double scale = this->openView()->mScale;
    const unsigned int small = this->makeClientSegment(27);
    for (const unsigned int id : {1U, 99U, 123456789U, small}) {
        const auto view = this->makeView(320, 480, id);
        EXPECT_NE(view->dataStoreShmId(), id);
        EXPECT_GE(view->dataStoreShmId(), 4096U);
        ASSERT_NE(view->mDataStore, nullptr);
        view->mDataStore->scale = 1.5;
        view->openFile(TypeParam::View::DOCUMENT, nullptr);
        EXPECT_EQ(view->mScale, scale) << "nothing is restored";
    }
    shmctl(static_cast<int>(small), IPC_RMID, nullptr);
}

TYPED_TEST_P(StateRecordTest, PaintsKeepTheRecordCurrent) {
    const auto view = this->openLong();
    this->paint(*view);
    const auto start = this->place(*view);
    this->goElsewhere(*view);
    const auto there = this->place(*view);
    EXPECT_NE(there, start);
    EXPECT_EQ(this->place(*this->reopen(*view)), start) << "not saved yet";
    this->paint(*view);
    EXPECT_EQ(this->place(*this->reopen(*view)), there);
}

TYPED_TEST_P(StateRecordTest, FailedOpenKeepsThePlaceForTheNextAttempt) {
    const auto old = this->openLong();
    this->goElsewhere(*old);
    this->paint(*old);
    const auto there = this->place(*old);
    const auto failed = this->reopen(*old, TypeParam::View::UNREADABLE);
    failed->SaveStateToDataStore();
    EXPECT_EQ(this->place(*this->reopen(*failed)), there);
}

TYPED_TEST_P(StateRecordTest, WithoutARecordStateOperationsDoNothing) {
    const auto view = this->openLong();
    this->goElsewhere(*view);
    this->paint(*view);
    const auto there = this->place(*view);
    view->mDirty = false;
    view->mDataStore = nullptr;
    view->SaveStateToDataStore();
    view->RestoreStateFromDataStore();
    EXPECT_EQ(this->place(*view), there);
    EXPECT_FALSE(view->mDirty);
}

REGISTER_TYPED_TEST_SUITE_P(StateRecordTest, NewViewMakesASegmentAndSavesItsState,
                            UnusableSegmentCountsAsNone, PaintsKeepTheRecordCurrent,
                            FailedOpenKeepsThePlaceForTheNextAttempt, WithoutARecordStateOperationsDoNothing);
