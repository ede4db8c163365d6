// SPDX-License-Identifier: Apache-2.0
// Reply texts: what the views and the bus handlers build their JSON with.
#pragma once

#include <json-c/json.h>

#include <memory>
#include <string>

struct JsonRelease {
    void operator()(json_object* object) const { json_object_put(object); }
};
// Owns a JSON object; null when it could not be made.
using JsonOwner = std::unique_ptr<json_object, JsonRelease>;

// The object as json-c writes it by default; the empty text for null.
std::string jsonText(const JsonOwner& object);

// An object of one member. A null key is the empty one, a null text the empty text.
std::string formatSimpleJsonObject(const char* key, int value);
std::string formatSimpleJsonObject(const char* key, bool value);
std::string formatSimpleJsonObject(const char* key, const char* value);
