// SPDX-License-Identifier: Apache-2.0
// The JSON objects in calls and replies: a few members, and lists of such objects.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct json_object;

namespace lectern {

// Owns one JSON object.
class JsonMembers {
public:
    JsonMembers();
    // Returns nothing unless the text is a JSON object.
    static std::optional<JsonMembers> parse(const std::string& text);

    JsonMembers& add(const char* key, int value);
    JsonMembers& add(const char* key, double value);
    JsonMembers& add(const char* key, bool value);
    JsonMembers& add(const char* key, const std::string& value);
    // Adds a segment identifier, which is sent as decimal text.
    JsonMembers& addIdentifier(const char* key, unsigned int value);
    // Adds the members of another object.
    JsonMembers& addAll(const JsonMembers& others);

    bool has(const char* key) const;
    // Returns nothing when the member is missing or has another type.
    std::optional<int> integer(const char* key) const;
    std::optional<long long> wideInteger(const char* key) const;
    std::optional<double> real(const char* key) const; // also of an integer
    std::optional<bool> boolean(const char* key) const;
    std::optional<std::string> string(const char* key) const;
    // Leaves out elements that are not objects.
    std::optional<std::vector<JsonMembers>> list(const char* key) const;
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
