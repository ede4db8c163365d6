// SPDX-License-Identifier: Apache-2.0
// The JSON objects that cross the bus: flat, with a few members.
#pragma once

#include <memory>
#include <optional>
#include <string>

struct json_object;

namespace lectern {

// One JSON object, owned.
class JsonMembers {
public:
    JsonMembers();
    // Anything but a JSON object gives nothing.
    static std::optional<JsonMembers> parse(const std::string& text);

    JsonMembers& add(const char* key, int value);
    JsonMembers& add(const char* key, bool value);
    JsonMembers& add(const char* key, const std::string& value);
    // Segment identifiers travel as decimal text.
    JsonMembers& addIdentifier(const char* key, unsigned int value);

    bool has(const char* key) const;
    // Nothing when the member is missing or of another type.
    std::optional<int> integer(const char* key) const;
    std::optional<std::string> string(const char* key) const;
    std::optional<unsigned int> identifier(const char* key) const;

    std::string text() const;

private:
    struct Release {
        void operator()(json_object* object) const;
    };
    explicit JsonMembers(json_object* object) : mObject(object) {}
    JsonMembers& addValue(const char* key, json_object* value);
    json_object* member(const char* key) const;

    std::unique_ptr<json_object, Release> mObject;
};

} // namespace lectern
