// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/CompoundFile.h"

#include <gtest/gtest.h>

#include <string>

namespace lectern::engine::test {
namespace {

constexpr size_t SECTOR = 512;
constexpr uint32_t END = 0xFFFFFFFE;

void put(std::string& file, size_t at, uint32_t number) {
    for (size_t i = 0; i < 4; ++i) {
        file[at + i] = static_cast<char>(number >> 8 * i & 0xFF);
    }
}

uint32_t get(const std::string& file, size_t at) {
    uint32_t number = 0;
    for (size_t i = 4; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(file[at + i]);
    }
    return number;
}

// A compound file: the header, the table of successors in sector 0, and a
// directory of eight streams in the sectors 1 and 3. Each stream has 10 bytes.
class CompoundFileTest : public testing::Test {
protected:
    CompoundFileTest() : mFile(6 * SECTOR, '\0') {
        mFile.replace(0, 8, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
        mFile[30] = 9; // 512 bytes in a sector
        put(mFile, 48, 1);
        put(mFile, 76, 0);
        put(mFile, SECTOR + 4, 3);
        put(mFile, SECTOR + 3 * 4, END);
        for (int i = 0; i < 8; ++i) {
            mFile[entry(i) + 66] = 2;
            put(mFile, entry(i) + 116, 4);
            put(mFile, entry(i) + 120, 10);
        }
    }
    static size_t entry(int number) {
        return (number < 4 ? 2 : 4) * SECTOR + static_cast<size_t>(number % 4) * 128;
    }

    std::string mFile;
};

TEST_F(CompoundFileTest, StreamsLongerThanTheFileAreEmptied) {
    put(mFile, entry(2) + 120, 4076863688);
    put(mFile, entry(7) + 120, static_cast<uint32_t>(mFile.size()) + 1);
    EXPECT_TRUE(emptyImpossibleStreams(mFile));
    for (const int emptied : {2, 7}) {
        EXPECT_EQ(get(mFile, entry(emptied) + 116), END);
        EXPECT_EQ(get(mFile, entry(emptied) + 120), 0U);
    }
    EXPECT_EQ(get(mFile, entry(3) + 120), 10U);
}

TEST_F(CompoundFileTest, AFileWithoutSuchAStreamStaysAsItIs) {
    const std::string before = mFile;
    EXPECT_FALSE(emptyImpossibleStreams(mFile));
    EXPECT_EQ(mFile, before);
}

TEST_F(CompoundFileTest, StoragesHaveNoLength) {
    mFile[entry(1) + 66] = 1;
    put(mFile, entry(1) + 120, 4076863688);
    EXPECT_FALSE(emptyImpossibleStreams(mFile));
}

TEST_F(CompoundFileTest, ADirectoryThatLeadsInACircleEnds) {
    put(mFile, SECTOR + 3 * 4, 1);
    EXPECT_FALSE(emptyImpossibleStreams(mFile));
}

TEST_F(CompoundFileTest, SectorsThatAreNotThereAreNotRead) {
    put(mFile, entry(7) + 120, 4076863688);
    put(mFile, SECTOR + 4, 1000);
    EXPECT_FALSE(emptyImpossibleStreams(mFile));
    put(mFile, 76, 0xFFFFFFFF);
    EXPECT_FALSE(emptyImpossibleStreams(mFile));
    put(mFile, 48, 0xFFFFFFFF);
    EXPECT_FALSE(emptyImpossibleStreams(mFile));
}

TEST_F(CompoundFileTest, OtherFilesStayAsTheyAre) {
    std::string text(4096, 'a');
    EXPECT_FALSE(emptyImpossibleStreams(text));
    std::string cut = mFile.substr(0, 300);
    EXPECT_FALSE(emptyImpossibleStreams(cut));
    mFile[30] = 60;
    EXPECT_FALSE(emptyImpossibleStreams(mFile));
}

} // namespace
} // namespace lectern::engine::test
