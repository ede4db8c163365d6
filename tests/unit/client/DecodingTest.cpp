// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Decoding.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using namespace lectern;
using testing::ElementsAre;

// Every callback records its arguments.
class DecodingTest : public testing::Test {
protected:
    DecodingTest() {
        mEvents.onInvalidated = [this] { mTold.emplace_back("invalidated"); };
        mEvents.onLinkTapped = [this] { mTold.emplace_back("link"); };
        mEvents.onCommentTapped = [this] { mTold.emplace_back("comment"); };
        mEvents.onClickUnused = [this] { mTold.emplace_back("unused"); };
        mEvents.onColumnSelected = [this] { mTold.emplace_back("column"); };
        mEvents.onTracksSelected = [this] { mTold.emplace_back("tracks"); };
        mEvents.onTrackResized = [this] { mTold.emplace_back("resized"); };
        mEvents.onSlideChanged = [this](int slide) { mTold.push_back("slide " + std::to_string(slide)); };
        mEvents.onOpened = [this](int result) { mTold.push_back("opened " + std::to_string(result)); };
        mEvents.onDocumentLost = [this](const Error& error) {
            mTold.push_back("lost " + std::to_string(error.code));
        };
    }

    ViewEvents mEvents;
    std::vector<std::string> mTold;
};

TEST_F(DecodingTest, EachNotificationHasItsOwnCallback) {
    for (int id = 0; id <= 10; ++id) {
        tell(mEvents, {id, 4, 6});
    }
    EXPECT_THAT(mTold, ElementsAre("invalidated", "link", "comment", "unused", "column", "tracks", "resized",
                                   "slide 4", "opened 6", "lost 6"))
        << "paint-done is nobody's business";
}

TEST_F(DecodingTest, TheRecordItselfIsToldFirstAndWhateverItIs) {
    std::vector<ViewRecord> records;
    mEvents.onRecord = [&](const ViewRecord& record) {
        records.push_back(record);
        mTold.emplace_back("record");
    };
    tell(mEvents, {7, 2, 0});
    tell(mEvents, {77, 1, 2});
    EXPECT_THAT(mTold, ElementsAre("record", "slide 2", "record"));
    EXPECT_THAT(records, ElementsAre(ViewRecord{7, 2, 0}, ViewRecord{77, 1, 2}));
}

TEST_F(DecodingTest, WhatNobodyAsksForIsLeftOut) {
    const ViewEvents nobody;
    for (int id = -1; id <= 11; ++id) {
        tell(nobody, {id, 0, 0});
    }
}

} // namespace
