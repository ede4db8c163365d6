// SPDX-License-Identifier: Apache-2.0
#include "service/Json.h"

#include "view/JsonReply.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

// Older versions of json-c return errors as pointers in the last 4000 bytes of
// the address space.
bool isErrorPointer(const json_object* object) {
    return reinterpret_cast<uintptr_t>(object) > static_cast<uintptr_t>(-4000);
}

// The value of a key, or null. The object stays its owner.
json_object* member(json_object* object, const char* key) {
    if (object == nullptr || isErrorPointer(object)) {
        return nullptr;
    }
    json_object* value = json_object_object_get(object, key);
    return isErrorPointer(value) ? nullptr : value;
}

bool isNotANumber(const json_object* value) {
    return json_object_is_type(value, json_type_double) != 0 && std::isnan(json_object_get_double(value));
}

} // namespace

bool json_get_string(json_object* object, const char* key, const char** out) {
    json_object* value = member(object, key);
    *out = value == nullptr ? nullptr : json_object_get_string(value);
    return value != nullptr;
}

bool json_get_bool(json_object* object, const char* key, bool* out) {
    const json_object* value = member(object, key);
    *out = value != nullptr && json_object_get_boolean(value) != 0;
    return value != nullptr;
}

bool json_get_int(json_object* object, const char* key, int* out) {
    const json_object* value = member(object, key);
    *out = value == nullptr || isNotANumber(value) ? 0 : json_object_get_int(value);
    return value != nullptr;
}

bool json_get_double(json_object* object, const char* key, double* out) {
    const json_object* value = member(object, key);
    *out = value == nullptr ? 0.0 : json_object_get_double(value);
    return value != nullptr;
}

bool json_get_uint(json_object* object, const char* key, unsigned int* out) {
    const char* text = nullptr;
    const bool found = json_get_string(object, key, &text);
    const unsigned long value = text == nullptr ? 0 : std::strtoul(text, nullptr, 0);
    constexpr unsigned int HIGHEST = std::numeric_limits<unsigned int>::max();
    *out = value > HIGHEST ? HIGHEST : static_cast<unsigned int>(value);
    return found;
}

json_object* json_object_new_uint(unsigned int value) {
    char digits[48];
    std::snprintf(digits, sizeof digits, "%u", value);
    return json_object_new_string(digits);
}

std::string formatErrorJsonObject(const char* code, const char* text) {
    const JsonOwner reply(json_object_new_object());
    if (reply != nullptr) {
        json_object_object_add(reply.get(), "errorCode", json_object_new_string(code));
        json_object_object_add(reply.get(), "errorText", json_object_new_string(text));
    }
    return jsonText(reply);
}
