// SPDX-License-Identifier: Apache-2.0
// docs/formats.md and docs/touch.md compared with the compiled records.
#include "channel/DocAdapterCommon.h"
#include "tests/guides/Markdown.h"
#include "view/StateRecord.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>

namespace {

constexpr char GUIDE[] = "docs/formats.md";
constexpr char TOUCH_GUIDE[] = "docs/touch.md";

using Place = std::pair<size_t, size_t>; // offset and size
using Fields = std::map<std::string, Place>;

Fields fieldsOf(const std::string& heading, const char* guide = GUIDE) {
    Fields fields;
    for (const markdown::Row& row : markdown::table(guide, heading, "Offset").rows) {
        fields[markdown::codes(row.at(2)).at(0)] = {std::stoul(row.at(0)), std::stoul(row.at(1))};
    }
    return fields;
}

std::map<long, std::string> numbersOf(const std::string& heading, const std::string& column,
                                      const char* guide = GUIDE) {
    std::map<long, std::string> numbers;
    for (const markdown::Row& row : markdown::table(guide, heading, column).rows) {
        numbers[std::stol(row.at(0))] = markdown::codes(row.at(1)).at(0);
    }
    return numbers;
}

// The bytes at which two records' texts differ.
template<typename Record>
Place changed(const Record& before, const Record& after) {
    const auto* a = reinterpret_cast<const unsigned char*>(&before) + sizeof(long);
    const auto* b = reinterpret_cast<const unsigned char*>(&after) + sizeof(long);
    size_t first = 0;
    while (first < Record::TEXT_SIZE && a[first] == b[first]) {
        ++first;
    }
    size_t end = Record::TEXT_SIZE;
    while (end > first && a[end - 1] == b[end - 1]) {
        --end;
    }
    return {first, end - first};
}

// The place of a field in the text, which begins after the type.
#define IN_TEXT(record, field) Place(offsetof(record, field) - sizeof(long), sizeof(record::field))

Place placeOfReal(bool second) {
    ClientServerMessage zeros;
    zeros.setReals(0, 0);
    ClientServerMessage ones = zeros;
    const double everyByte = -3.7206620809969886e-103; // all its bytes are AA
    ones.setReals(second ? 0 : everyByte, second ? everyByte : 0);
    return changed(zeros, ones);
}

Place placeOfPinch(bool phase) {
    ClientServerMessage zeros;
    zeros.setPinch(0, 0);
    ClientServerMessage ones = zeros;
    const float everyByte = -3.0316488e-13F; // all its bytes are AA
    ones.setPinch(phase ? 0 : everyByte, phase ? -1 : 0);
    return changed(zeros, ones);
}

TEST(FormatsGuide, PlacesTheFieldsOfARecordToTheService) {
    EXPECT_EQ(fieldsOf("ClientServerMessage"), (Fields{{"docid", IN_TEXT(ClientServerMessage, docid)},
                                                       {"x", IN_TEXT(ClientServerMessage, x)},
                                                       {"y", IN_TEXT(ClientServerMessage, y)},
                                                       {"tail", IN_TEXT(ClientServerMessage, tail)},
                                                       {"firstReal", placeOfReal(false)},
                                                       {"secondReal", placeOfReal(true)}}));
}

TEST(FormatsGuide, PlacesTheFieldsOfARecordToAClient) {
    EXPECT_EQ(fieldsOf("ServerClientMessage"), (Fields{{"id", IN_TEXT(ServerClientMessage, id)},
                                                       {"value", IN_TEXT(ServerClientMessage, value)},
                                                       {"extra", IN_TEXT(ServerClientMessage, extra)}}));
}

TEST(FormatsGuide, PlacesTheFieldsOfTheStateSegment) {
    EXPECT_EQ(fieldsOf("The state segment"),
              (Fields{{"scrollX", {offsetof(StateRecord, scrollX), sizeof(StateRecord::scrollX)}},
                      {"scrollY", {offsetof(StateRecord, scrollY), sizeof(StateRecord::scrollY)}},
                      {"scale", {offsetof(StateRecord, scale), sizeof(StateRecord::scale)}},
                      {"scaleLevel", {offsetof(StateRecord, scaleLevel), sizeof(StateRecord::scaleLevel)}},
                      {"extra", {offsetof(StateRecord, extra), sizeof(StateRecord::extra)}}}));
}

TEST(FormatsGuide, TellsTheSizes) {
    const std::string guide = markdown::read(GUIDE);
    const auto says = [&](const std::string& text) { return guide.find(text) != std::string::npos; };
    EXPECT_TRUE(
        says("To the service: a text of " + std::to_string(ClientServerMessage::TEXT_SIZE) + " bytes"));
    EXPECT_TRUE(says("To a client: a text of " + std::to_string(ServerClientMessage::TEXT_SIZE) + " bytes"));
    EXPECT_TRUE(says("\n" + std::to_string(sizeof(StateRecord)) + " bytes, made by the service"));
    EXPECT_TRUE(says("ftok(\"/tmp\", " + std::to_string(int{DocAdapterMessageQueue::PROJECT_ID}) + ")"));
    EXPECT_TRUE(says("docid + " + std::to_string(DocAdapterMessageQueue::PAINT_DONE_BASE) + "."));
    EXPECT_TRUE(says("never below " + std::to_string(DocAdapterMessageQueue::HIGHEST_CLIENT_TYPE + 1)));
}

TEST(FormatsGuide, NumbersTheTypesToTheService) {
    EXPECT_EQ(numbersOf("ClientServerMessage", "Type"), (std::map<long, std::string>{
                                                            {_PAINT, "_PAINT"},
                                                            {_KEY_DOWN, "_KEY_DOWN"},
                                                            {_KEY_UP, "_KEY_UP"},
                                                            {_PEN_DOWN, "_PEN_DOWN"},
                                                            {_PEN_UP, "_PEN_UP"},
                                                            {_PEN_MOVE, "_PEN_MOVE"},
                                                            {_GESTURE_START, "_GESTURE_START"},
                                                            {_GESTURE_CHANGE, "_GESTURE_CHANGE"},
                                                            {_GESTURE_END, "_GESTURE_END"},
                                                            {_WIDE_MODE, "_WIDE_MODE"},
                                                        }));
}

TEST(FormatsGuide, NumbersTheIdsToAClient) {
    EXPECT_EQ(numbersOf("ServerClientMessage", "Id"), (std::map<long, std::string>{
                                                          {_INVALIDATED, "_INVALIDATED"},
                                                          {_HYPERLINK, "_HYPERLINK"},
                                                          {_COMMENT_TAPPED, "_COMMENT_TAPPED"},
                                                          {_CLICK_UNUSED, "_CLICK_UNUSED"},
                                                          {_COLUMN_SELECTED, "_COLUMN_SELECTED"},
                                                          {_TRACKS_SELECTED, "_TRACKS_SELECTED"},
                                                          {_TRACK_RESIZED, "_TRACK_RESIZED"},
                                                          {_SLIDE_CHANGED, "_SLIDE_CHANGED"},
                                                          {_OPENED, "_OPENED"},
                                                          {_PAINT_DONE, "_PAINT_DONE"},
                                                          {_DOCUMENT_LOST, "_DOCUMENT_LOST"},
                                                      }));
}

TEST(TouchGuide, PlacesTheFieldsOfAPinch) {
    EXPECT_EQ(fieldsOf("Records", TOUCH_GUIDE),
              (Fields{{"pinchFactor", placeOfPinch(false)}, {"pinchPhase", placeOfPinch(true)}}));
}

TEST(TouchGuide, NumbersTheTypesToTheService) {
    EXPECT_EQ(numbersOf("Records", "Type", TOUCH_GUIDE),
              (std::map<long, std::string>{{_PINCH, "_PINCH"}, {_SCROLL_BY, "_SCROLL_BY"}}));
}

TEST(TouchGuide, NumbersThePhasesOfAPinch) {
    const std::string guide = markdown::read(TOUCH_GUIDE);
    const std::string phases = std::to_string(_PINCH_BEGINS) + ": begins, " + std::to_string(_PINCH_MOVES) +
                               ": moves, " + std::to_string(_PINCH_ENDS) + ": ends, " +
                               std::to_string(_PINCH_GIVEN_UP) + ": is given up";
    EXPECT_NE(guide.find(phases), std::string::npos);
}

TEST(TouchGuide, NumbersTheIdsToAClient) {
    EXPECT_EQ(numbersOf("Records", "Id", TOUCH_GUIDE), (std::map<long, std::string>{
                                                           {_OVERSCROLL, "_OVERSCROLL"},
                                                           {_PROGRESS, "_PROGRESS"},
                                                           {_CELL_TAPPED, "_CELL_TAPPED"},
                                                       }));
}

} // namespace
