// SPDX-License-Identifier: Apache-2.0
// The bytes of records: the same for 32-bit and 64-bit processes.
#include "channel/DocAdapterCommon.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <new>

namespace {

template<typename Record>
std::array<unsigned char, Record::TEXT_SIZE> textOf(const Record& message) {
    std::array<unsigned char, Record::TEXT_SIZE> text;
    std::memcpy(text.data(), reinterpret_cast<const unsigned char*>(&message) + sizeof(long), text.size());
    return text;
}

TEST(ClientRecord, TextIsTwentyBytesInTheOrderDocidXYAndLittleEndian) {
    ClientServerMessage message(_PEN_DOWN, 0x01020304);
    message.x = 0x11121314;
    message.y = -1;
    std::memset(message.tail, 0x55, sizeof message.tail);
    const std::array<unsigned char, 20> expected = {4,    3,    2,    1,    0x14, 0x13, 0x12,
                                                    0x11, 0xFF, 0xFF, 0xFF, 0xFF, 0x55, 0x55,
                                                    0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
    EXPECT_EQ(textOf(message), expected);
    EXPECT_EQ(sizeof message, sizeof(long) + 20);
}

TEST(ClientRecord, DoublesLieOverXAndYAndTheTail) {
    ClientServerMessage message(_GESTURE_CHANGE, 7);
    message.setReals(1.5, -2.25);
    const auto text = textOf(message);
    double first = 0;
    double second = 0;
    std::memcpy(&first, text.data() + 4, sizeof first);
    std::memcpy(&second, text.data() + 12, sizeof second);
    EXPECT_EQ(first, 1.5);
    EXPECT_EQ(second, -2.25);
    EXPECT_EQ(message.firstReal(), 1.5);
    EXPECT_EQ(message.secondReal(), -2.25);
    EXPECT_EQ(message.docid, 7);
}

TEST(ClientRecord, DoublesCanBeReadAtAnyAddress) {
    alignas(8) unsigned char memory[sizeof(ClientServerMessage) + 4];
    auto* message = new (memory + 4) ClientServerMessage(_GESTURE_START, 1);
    message->setReals(3.0, 4.0);
    EXPECT_EQ(message->firstReal(), 3.0);
    EXPECT_EQ(message->secondReal(), 4.0);
}

TEST(ClientRecord, WideModeFlagIsTheFirstByteOfX) {
    ClientServerMessage message(_WIDE_MODE, 0);
    EXPECT_FALSE(message.flag());
    message.setFlag(true);
    EXPECT_EQ(textOf(message)[4], 1);
    message.setFlag(false);
    message.x = 0x7FFFFF00; // the other bytes are ignored
    EXPECT_FALSE(message.flag());
    message.x = 0x80;
    EXPECT_TRUE(message.flag());
}

TEST(ClientRecord, ConstructorsLeaveTheTailAlone) {
    alignas(8) unsigned char memory[sizeof(ClientServerMessage)];
    std::memset(memory, 0xA5, sizeof memory);
    const auto* message = new (memory) ClientServerMessage;
    EXPECT_EQ(message->type, 0);
    EXPECT_EQ(message->docid, 0);
    EXPECT_EQ(message->x, 0);
    EXPECT_EQ(message->y, 0);
    const auto* typed = new (memory) ClientServerMessage(_KEY_UP, 12);
    EXPECT_EQ(typed->type, 3);
    EXPECT_EQ(typed->docid, 12);
    EXPECT_EQ(typed->x, 0);
    EXPECT_EQ(typed->y, 0);
}

TEST(ClientRecord, TypesHaveTheirNumbers) {
    EXPECT_EQ(_PAINT, 1);
    EXPECT_EQ(_KEY_DOWN, 2);
    EXPECT_EQ(_KEY_UP, 3);
    EXPECT_EQ(_PEN_DOWN, 4);
    EXPECT_EQ(_PEN_UP, 5);
    EXPECT_EQ(_PEN_MOVE, 6);
    EXPECT_EQ(_GESTURE_START, 7);
    EXPECT_EQ(_GESTURE_CHANGE, 8);
    EXPECT_EQ(_GESTURE_END, 9);
    EXPECT_EQ(_WIDE_MODE, 10);
}

TEST(ServiceRecord, IdsHaveTheirNumbers) {
    EXPECT_EQ(_INVALIDATED, 0);
    EXPECT_EQ(_HYPERLINK, 1);
    EXPECT_EQ(_COMMENT_TAPPED, 2);
    EXPECT_EQ(_CLICK_UNUSED, 3);
    EXPECT_EQ(_COLUMN_SELECTED, 4);
    EXPECT_EQ(_TRACKS_SELECTED, 5);
    EXPECT_EQ(_TRACK_RESIZED, 6);
    EXPECT_EQ(_SLIDE_CHANGED, 7);
    EXPECT_EQ(_OPENED, 8);
    EXPECT_EQ(_PAINT_DONE, 9);
    EXPECT_EQ(_DOCUMENT_LOST, 10);
}

TEST(ServiceRecord, TextIsTwelveBytes) {
    ServerClientMessage message(4096, _OPENED);
    message.value = 2;
    message.extra = 0x0A0B0C0D;
    const std::array<unsigned char, 12> expected = {8, 0, 0, 0, 2, 0, 0, 0, 0x0D, 0x0C, 0x0B, 0x0A};
    EXPECT_EQ(textOf(message), expected);
    EXPECT_EQ(sizeof message, sizeof(long) + 12);
}

TEST(ServiceRecord, ConstructorsClearTheRest) {
    const ServerClientMessage empty;
    EXPECT_EQ(empty.type, 0);
    EXPECT_EQ(empty.id, 0);
    EXPECT_EQ(empty.value, 0);
    EXPECT_EQ(empty.extra, 0);
    const ServerClientMessage typed(102, _PAINT_DONE);
    EXPECT_EQ(typed.type, 102);
    EXPECT_EQ(typed.id, 9);
    EXPECT_EQ(typed.value, 0);
    EXPECT_EQ(typed.extra, 0);
}

} // namespace
