// SPDX-License-Identifier: Apache-2.0
#include "view/DocumentProperties.h"

#include "view/TextHelpers.h"

#include <array>
#include <memory>

namespace {

using TextFunction = decltype(PropertyFunctions::name);
using DateFunction = decltype(PropertyFunctions::creationDate);

constexpr int32_t LONGEST_TEXT = 2047;
constexpr int32_t CAPACITY = 4096;

std::string prvText(void* doc, TextFunction function, const char* whenTooLong) {
    int32_t length = 0;
    function(doc, nullptr, 0, &length);
    if (length > LONGEST_TEXT) {
        return whenTooLong;
    }
    // The buffer has CAPACITY units, so it is large enough also for a module that
    // counts the capacity in units instead of bytes.
    std::array<uint16_t, CAPACITY> text{};
    function(doc, text.data(), CAPACITY, &length);
    text.back() = 0;
    return utf8OrEmpty(text.data());
}

std::string prvDate(void* doc, DateFunction function) {
    time_t time = 0;
    function(doc, &time);
    const std::unique_ptr<char[]> text(Time2String(time));
    return text.get();
}

} // namespace

JsonOwner documentProperties(void* doc, const PropertyFunctions& functions) {
    JsonOwner object(json_object_new_object());
    if (object == nullptr) {
        return object;
    }
    const auto add = [&object](const char* key, const std::string& text) {
        json_object_object_add(object.get(), key, json_object_new_string(text.c_str()));
    };
    if (doc == nullptr) {
        for (const char* key : {"name", "author", "description", "lastsave", "createdate"}) {
            add(key, "");
        }
        return object;
    }
    add("name", prvText(doc, functions.name, "(no name)"));
    add("author", prvText(doc, functions.author, "(no author)"));
    add("description", prvText(doc, functions.description, "(no description)"));
    add("lastsave", prvDate(doc, functions.lastSavedDate));
    add("createdate", prvDate(doc, functions.creationDate));
    return object;
}
