// SPDX-License-Identifier: Apache-2.0
#include "channel/Backlog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

// A record that is identified by its docid.
ClientServerMessage record(long type, int number) {
    return {type, number};
}

// A backlog in its simplest form: a list in order of arrival.
class ListBacklog {
public:
    void push(const ClientServerMessage& message) {
        if (mList.size() == Backlog::CAPACITY) {
            auto victim = find([](long type) { return type == _PEN_MOVE; });
            if (victim == mList.end()) {
                victim = find([](long type) { return type != _PAINT; });
            }
            mList.erase(victim == mList.end() ? mList.begin() : victim);
        }
        mList.push_back(message);
    }
    ClientServerMessage pop() {
        const auto first = std::min_element(mList.begin(), mList.end(),
                                            [](const auto& a, const auto& b) { return a.type < b.type; });
        const ClientServerMessage message = *first;
        mList.erase(first);
        return message;
    }
    size_t size() const { return mList.size(); }

private:
    template<typename Condition>
    std::vector<ClientServerMessage>::iterator find(Condition condition) {
        return std::find_if(mList.begin(), mList.end(),
                            [&](const ClientServerMessage& message) { return condition(message.type); });
    }
    std::vector<ClientServerMessage> mList;
};

void fill(Backlog& backlog, long type) {
    for (int i = 0; backlog.size() < Backlog::CAPACITY; ++i) {
        backlog.push(record(type, i));
    }
}

TEST(BacklogTest, LowestTypeFirstAndOldestFirst) {
    Backlog backlog;
    EXPECT_TRUE(backlog.empty());
    backlog.push(record(_PEN_MOVE, 1));
    backlog.push(record(_KEY_DOWN, 2));
    backlog.push(record(_PEN_MOVE, 3));
    backlog.push(record(_PAINT, 4));
    EXPECT_EQ(backlog.size(), 4U);
    EXPECT_EQ(backlog.lowestType(), _PAINT);
    EXPECT_EQ(backlog.pop().docid, 4);
    EXPECT_EQ(backlog.pop().docid, 2);
    EXPECT_EQ(backlog.lowestType(), _PEN_MOVE);
    EXPECT_EQ(backlog.pop().docid, 1);
    EXPECT_EQ(backlog.pop().docid, 3);
    EXPECT_TRUE(backlog.empty());
}

TEST(BacklogTest, OldestFirstOfAnyType) {
    Backlog backlog;
    const long types[] = {_PEN_MOVE, _KEY_DOWN, _PEN_MOVE, _PAINT};
    for (int docid = 0; docid < 4; ++docid) {
        backlog.push(record(types[docid], docid));
    }
    for (int docid = 0; docid < 4; ++docid) {
        EXPECT_EQ(backlog.popOldest().docid, docid);
    }
    EXPECT_TRUE(backlog.empty());
}

TEST(BacklogTest, KeepsEveryByte) {
    Backlog backlog;
    ClientServerMessage gesture(_GESTURE_CHANGE, 5);
    gesture.setReals(1.25, 2.5);
    backlog.push(gesture);
    const ClientServerMessage back = backlog.pop();
    EXPECT_EQ(back.type, _GESTURE_CHANGE);
    EXPECT_EQ(back.docid, 5);
    EXPECT_EQ(back.firstReal(), 1.25);
    EXPECT_EQ(back.secondReal(), 2.5);
}

TEST(BacklogTest, FullItGivesUpTheOldestPenMove) {
    Backlog backlog;
    backlog.push(record(_KEY_DOWN, -1));
    fill(backlog, _PEN_MOVE);
    backlog.push(record(_PEN_UP, -2));
    EXPECT_EQ(backlog.size(), Backlog::CAPACITY);
    EXPECT_EQ(backlog.pop().docid, -1);
    EXPECT_EQ(backlog.pop().docid, -2);
    EXPECT_EQ(backlog.pop().docid, 1); // 0 has been dropped
}

TEST(BacklogTest, FullWithoutPenMovesItGivesUpTheOldestInputButPaints) {
    Backlog backlog;
    backlog.push(record(_PAINT, -1));
    backlog.push(record(_GESTURE_END, -2));
    fill(backlog, _KEY_DOWN);
    backlog.push(record(_KEY_UP, -3));
    backlog.push(record(_KEY_UP, -4));
    EXPECT_EQ(backlog.size(), Backlog::CAPACITY);
    EXPECT_EQ(backlog.pop().docid, -1);
    EXPECT_EQ(backlog.pop().docid, 1); // -2 was dropped first, then 0
}

TEST(BacklogTest, FullOfPaintsItGivesUpTheOldestPaint) {
    Backlog backlog;
    fill(backlog, _PAINT);
    backlog.push(record(_PAINT, -1));
    EXPECT_EQ(backlog.size(), Backlog::CAPACITY);
    EXPECT_EQ(backlog.pop().docid, 1);
}

TEST(BacklogTest, BehavesAsAListUnderRandomOperations) {
    for (unsigned int seed = 0; seed < 8; ++seed) {
        std::mt19937 random(seed);
        // From mixes of all types to a few types that soon overflow.
        std::uniform_int_distribution<long> type(1, seed % 4 == 0 ? 99 : 1 + static_cast<long>(seed % 4) * 3);
        std::bernoulli_distribution pushes(seed % 2 == 0 ? 0.55 : 0.95);
        Backlog backlog;
        ListBacklog list;
        for (int step = 0; step < 12000; ++step) {
            if (list.size() == 0 || pushes(random)) {
                const ClientServerMessage message = record(type(random), step);
                backlog.push(message);
                list.push(message);
            } else {
                const ClientServerMessage expected = list.pop();
                ASSERT_EQ(backlog.lowestType(), expected.type);
                const ClientServerMessage message = backlog.pop();
                ASSERT_EQ(message.type, expected.type);
                ASSERT_EQ(message.docid, expected.docid);
            }
            ASSERT_EQ(backlog.size(), list.size());
        }
        while (list.size() > 0) {
            ASSERT_EQ(backlog.pop().docid, list.pop().docid);
        }
        EXPECT_TRUE(backlog.empty());
    }
}

} // namespace
