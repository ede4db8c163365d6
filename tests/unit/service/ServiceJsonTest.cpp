// SPDX-License-Identifier: Apache-2.0
#include "ServiceSystemCalls.h"
#include "service/Json.h"
#include "view/JsonReply.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

namespace {

// The readers' results for {"k": VALUE}.
struct Value {
    explicit Value(const std::string& json) : object(json_tokener_parse(("{\"k\": " + json + "}").c_str())) {}

    int asInt() {
        int value = 77;
        EXPECT_TRUE(json_get_int(object.get(), "k", &value));
        return value;
    }
    unsigned int asUint() {
        unsigned int value = 77;
        EXPECT_TRUE(json_get_uint(object.get(), "k", &value));
        return value;
    }
    bool asBool() {
        bool value = false;
        EXPECT_TRUE(json_get_bool(object.get(), "k", &value));
        return value;
    }
    std::string asString() {
        const char* value = nullptr;
        EXPECT_TRUE(json_get_string(object.get(), "k", &value));
        return value;
    }

    JsonObject object;
};

void expectMissing(json_object* object, const char* key) {
    int number = 77;
    unsigned int size = 77;
    bool flag = true;
    const char* text = "x";
    EXPECT_FALSE(json_get_int(object, key, &number));
    EXPECT_FALSE(json_get_uint(object, key, &size));
    EXPECT_FALSE(json_get_bool(object, key, &flag));
    EXPECT_FALSE(json_get_string(object, key, &text));
    EXPECT_EQ(number, 0);
    EXPECT_EQ(size, 0U);
    EXPECT_FALSE(flag);
    EXPECT_EQ(text, nullptr);
}

TEST(JsonReaders, AMissingKeyGivesTheAbsentValue) {
    const JsonObject object(json_tokener_parse(R"({"other": 1, "null": null})"));
    expectMissing(object.get(), "k");
    expectMissing(object.get(), "null");
}

TEST(JsonReaders, NothingIsThereInWhatIsNoObject) {
    expectMissing(nullptr, "k");
    expectMissing(reinterpret_cast<json_object*>(-5L), "k"); // an error value of old json-c
    for (const char* text : {"[1, 2]", "\"k\"", "3", "true"}) {
        const JsonObject object(json_tokener_parse(text));
        expectMissing(object.get(), "k");
    }
}

TEST(JsonReaders, AMemberThatIsAnErrorIsMissing) {
    const JsonObject object(json_tokener_parse(R"({"k": 1})"));
    lh_entry* entry = lh_table_lookup_entry(json_object_get_object(object.get()), "k");
    const void* value = std::exchange(entry->v, nullptr);
    for (const long error : {-1L, -22L, -3999L}) {
        entry->v = reinterpret_cast<void*>(error);
        expectMissing(object.get(), "k");
    }
    entry->v = value;
}

TEST(JsonReaders, IntsConvertWhateverIsThere) {
    EXPECT_EQ(Value("3").asInt(), 3);
    EXPECT_EQ(Value("\"3\"").asInt(), 3);
    EXPECT_EQ(Value("true").asInt(), 1);
    EXPECT_EQ(Value("-4.9").asInt(), -4);
    EXPECT_EQ(Value("\"three\"").asInt(), 0);
    EXPECT_EQ(Value("{}").asInt(), 0);
}

TEST(JsonReaders, IntsOutOfRangeAreTheNearest) {
    EXPECT_EQ(Value("99999999999").asInt(), INT_MAX);
    EXPECT_EQ(Value("-99999999999999999999").asInt(), INT_MIN);
    EXPECT_EQ(Value("1e300").asInt(), INT_MAX);
    EXPECT_EQ(Value("-1e300").asInt(), INT_MIN);
    EXPECT_EQ(Value("Infinity").asInt(), INT_MAX);
    EXPECT_EQ(Value("NaN").asInt(), 0);
}

TEST(JsonReaders, UnsignedValuesAreReadFromText) {
    EXPECT_EQ(Value("5").asUint(), 5U);
    EXPECT_EQ(Value("\"5\"").asUint(), 5U);
    EXPECT_EQ(Value("\"0x10\"").asUint(), 16U);
    EXPECT_EQ(Value("\"010\"").asUint(), 8U);
    EXPECT_EQ(Value("\"\"").asUint(), 0U);
    EXPECT_EQ(Value("true").asUint(), 0U);
    EXPECT_EQ(Value("7.9").asUint(), 7U);
}

TEST(JsonReaders, UnsignedValuesOutOfRangeAreTheHighest) {
    EXPECT_EQ(Value("4294967295").asUint(), UINT_MAX);
    EXPECT_EQ(Value("4294967296").asUint(), UINT_MAX);
    EXPECT_EQ(Value("\"99999999999999999999999\"").asUint(), UINT_MAX);
    EXPECT_EQ(Value("-1").asUint(), UINT_MAX);
}

TEST(JsonReaders, BoolsConvertWhateverIsThere) {
    EXPECT_TRUE(Value("true").asBool());
    EXPECT_FALSE(Value("false").asBool());
    EXPECT_TRUE(Value("2").asBool());
    EXPECT_FALSE(Value("0").asBool());
    EXPECT_TRUE(Value("\"no\"").asBool());
    EXPECT_FALSE(Value("\"\"").asBool());
}

TEST(JsonReaders, StringsAreTheTextOfWhateverIsThere) {
    EXPECT_EQ(Value("\"a b\"").asString(), "a b");
    EXPECT_EQ(Value("12").asString(), "12");
    EXPECT_EQ(Value("true").asString(), "true");
}

TEST(JsonWriters, UnsignedValuesTravelAsText) {
    const JsonObject value(json_object_new_uint(UINT_MAX));
    EXPECT_TRUE(json_object_is_type(value.get(), json_type_string));
    EXPECT_STREQ(json_object_get_string(value.get()), "4294967295");
}

TEST(JsonWriters, ErrorsHaveACodeAndAText) {
    EXPECT_EQ(formatErrorJsonObject("errDoesNotExist", "Document does not exist"),
              R"({ "errorCode": "errDoesNotExist", "errorText": "Document does not exist" })");
}

TEST(JsonWriters, SimpleRepliesHaveOneMember) {
    EXPECT_EQ(formatSimpleJsonObject("returnValue", true), R"({ "returnValue": true })");
    EXPECT_EQ(formatSimpleJsonObject("column", 3), R"({ "column": 3 })");
    EXPECT_EQ(formatSimpleJsonObject("text", static_cast<const char*>(nullptr)), R"({ "text": "" })");
}

TEST(JsonWriters, WithoutMemoryTheReplyIsEmpty) {
    systemCalls.noJsonObjects = true;
    EXPECT_EQ(formatErrorJsonObject("a", "b"), "");
    EXPECT_EQ(formatSimpleJsonObject("returnValue", true), "");
    systemCalls.noJsonObjects = false;
}

} // namespace
