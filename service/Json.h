// SPDX-License-Identifier: Apache-2.0
// Parameters of bus methods and their error replies.
//
// The readers store the absent value (null, false, 0) and return false when the
// key is missing; they convert whatever else stands there as json-c does and
// never complain about its kind. Unsigned values travel as text.
#pragma once

#include <json-c/json.h>

#include <string>

// Owns one parsed object, which may be null: an object without members.
class JsonObject {
public:
    explicit JsonObject(json_object* object) : mObject(object) {}
    ~JsonObject() { json_object_put(mObject); }
    JsonObject(const JsonObject&) = delete;
    JsonObject& operator=(const JsonObject&) = delete;

    json_object* get() const { return mObject; }

private:
    json_object* mObject;
};

// The text belongs to the object and lives as long.
bool json_get_string(json_object* object, const char* key, const char** out);
bool json_get_bool(json_object* object, const char* key, bool* out);
// Out of range: the nearest int; not a number: 0.
bool json_get_int(json_object* object, const char* key, int* out);
// Reads the value's text as C does, 0x and leading 0 included. Out of range: 4294967295.
bool json_get_uint(json_object* object, const char* key, unsigned int* out);

// A JSON string of the decimal digits; the caller owns it.
json_object* json_object_new_uint(unsigned int value);

// {"errorCode": code, "errorText": text}; empty when out of memory.
std::string formatErrorJsonObject(const char* code, const char* text);
