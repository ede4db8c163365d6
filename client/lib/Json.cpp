// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Json.h"

#include <json-c/json.h>

#include <charconv>

namespace lectern {

void JsonMembers::Release::operator()(json_object* object) const {
    json_object_put(object);
}

JsonMembers::JsonMembers() : mObject(json_object_new_object()) {}

std::optional<JsonMembers> JsonMembers::parse(const std::string& text) {
    JsonMembers parsed(json_tokener_parse(text.c_str()));
    if (!json_object_is_type(parsed.mObject.get(), json_type_object)) {
        return std::nullopt;
    }
    return parsed;
}

JsonMembers& JsonMembers::addValue(const char* key, json_object* value) {
    if (json_object_object_add(mObject.get(), key, value) != 0) {
        json_object_put(value);
    }
    return *this;
}

JsonMembers& JsonMembers::add(const char* key, int value) {
    return addValue(key, json_object_new_int(value));
}

JsonMembers& JsonMembers::add(const char* key, double value) {
    return addValue(key, json_object_new_double(value));
}

JsonMembers& JsonMembers::add(const char* key, bool value) {
    return addValue(key, json_object_new_boolean(value ? 1 : 0));
}

JsonMembers& JsonMembers::add(const char* key, const std::string& value) {
    return addValue(key, json_object_new_string_len(value.data(), static_cast<int>(value.size())));
}

JsonMembers& JsonMembers::addIdentifier(const char* key, unsigned int value) {
    return add(key, std::to_string(value));
}

JsonMembers& JsonMembers::addAll(const JsonMembers& others) {
    json_object_object_foreach(others.mObject.get(), key, value) {
        addValue(key, json_object_get(value));
    }
    return *this;
}

json_object* JsonMembers::member(const char* key) const {
    json_object* value = nullptr;
    json_object_object_get_ex(mObject.get(), key, &value);
    return value;
}

bool JsonMembers::has(const char* key) const {
    return json_object_object_get_ex(mObject.get(), key, nullptr) != 0;
}

std::optional<int> JsonMembers::integer(const char* key) const {
    json_object* value = member(key);
    if (!json_object_is_type(value, json_type_int)) {
        return std::nullopt;
    }
    return json_object_get_int(value);
}

std::optional<long long> JsonMembers::wideInteger(const char* key) const {
    json_object* value = member(key);
    return json_object_is_type(value, json_type_int) ? std::optional<long long>(json_object_get_int64(value))
                                                     : std::nullopt;
}

std::optional<double> JsonMembers::real(const char* key) const {
    json_object* value = member(key);
    const bool isNumber =
        json_object_is_type(value, json_type_double) || json_object_is_type(value, json_type_int);
    return isNumber ? std::optional<double>(json_object_get_double(value)) : std::nullopt;
}

std::optional<bool> JsonMembers::boolean(const char* key) const {
    json_object* value = member(key);
    return json_object_is_type(value, json_type_boolean)
               ? std::optional<bool>(json_object_get_boolean(value) != 0)
               : std::nullopt;
}

std::optional<std::vector<JsonMembers>> JsonMembers::list(const char* key) const {
    json_object* value = member(key);
    if (!json_object_is_type(value, json_type_array)) {
        return std::nullopt;
    }
    std::vector<JsonMembers> elements;
    for (size_t i = 0; i < json_object_array_length(value); ++i) {
        json_object* element = json_object_array_get_idx(value, i);
        if (json_object_is_type(element, json_type_object)) {
            elements.push_back(JsonMembers(json_object_get(element)));
        }
    }
    return elements;
}

std::optional<std::string> JsonMembers::string(const char* key) const {
    json_object* value = member(key);
    if (!json_object_is_type(value, json_type_string)) {
        return std::nullopt;
    }
    return std::string(json_object_get_string(value), static_cast<size_t>(json_object_get_string_len(value)));
}

std::optional<unsigned int> JsonMembers::identifier(const char* key) const {
    const std::optional<std::string> digits = string(key);
    if (!digits) {
        return std::nullopt;
    }
    unsigned int value = 0;
    const char* end = digits->data() + digits->size();
    const auto [stop, failure] = std::from_chars(digits->data(), end, value);
    if (failure != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

std::string JsonMembers::text() const {
    return json_object_to_json_string(mObject.get());
}

} // namespace lectern
