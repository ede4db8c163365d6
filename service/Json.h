// SPDX-License-Identifier: Apache-2.0
// Reading the parameters of bus methods, and writing their error replies.
//
// If the key is missing, a reader stores null, false or 0 and returns false. A
// value of another type is converted as json-c does and is no error. Unsigned
// values are transmitted as text.
#pragma once

#include <json-c/json.h>

#include <string>

// Owns one parsed object. May be null, which counts as an object without members.
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

// The object owns the text, which is valid as long as the object.
bool json_get_string(json_object* object, const char* key, const char** out);
bool json_get_bool(json_object* object, const char* key, bool* out);
// A value out of range becomes the nearest int, NaN becomes 0.
bool json_get_int(json_object* object, const char* key, int* out);
bool json_get_double(json_object* object, const char* key, double* out);
// Reads the value's text like strtoul with base 0: 0x means hexadecimal, a leading
// 0 octal. A value out of range becomes 4294967295.
bool json_get_uint(json_object* object, const char* key, unsigned int* out);

// A JSON string with the value's decimal digits. The caller owns it.
json_object* json_object_new_uint(unsigned int value);

// Returns {"errorCode": code, "errorText": text}, or an empty text if out of memory.
std::string formatErrorJsonObject(const char* code, const char* text);
