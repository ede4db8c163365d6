// SPDX-License-Identifier: Apache-2.0
#include "view/JsonReply.h"

namespace {

// Takes ownership of the value.
std::string prvOneMember(const char* key, json_object* value) {
    const JsonOwner object(json_object_new_object());
    if (object == nullptr) {
        json_object_put(value);
        return {};
    }
    json_object_object_add(object.get(), key != nullptr ? key : "", value);
    return jsonText(object);
}

} // namespace

std::string jsonText(const JsonOwner& object) {
    const char* text = object != nullptr ? json_object_get_string(object.get()) : nullptr;
    return text != nullptr ? text : "";
}

std::string formatSimpleJsonObject(const char* key, int value) {
    return prvOneMember(key, json_object_new_int(value));
}

std::string formatSimpleJsonObject(const char* key, bool value) {
    return prvOneMember(key, json_object_new_boolean(value ? 1 : 0));
}

std::string formatSimpleJsonObject(const char* key, const char* value) {
    return prvOneMember(key, json_object_new_string(value != nullptr ? value : ""));
}
