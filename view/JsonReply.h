// SPDX-License-Identifier: Apache-2.0
// Helpers with which views and bus handlers build JSON replies.
#pragma once

#include <json-c/json.h>

#include <memory>
#include <string>

struct JsonRelease {
    void operator()(json_object* object) const { json_object_put(object); }
};
// Owns a JSON object, or is null.
using JsonOwner = std::unique_ptr<json_object, JsonRelease>;

// The object as text, in json-c's default format; empty for null.
std::string jsonText(const JsonOwner& object);

// The text of an object with one member. A null key or text counts as empty. Returns
// an empty text if out of memory.
std::string formatSimpleJsonObject(const char* key, int value);
std::string formatSimpleJsonObject(const char* key, bool value);
std::string formatSimpleJsonObject(const char* key, const char* value);
