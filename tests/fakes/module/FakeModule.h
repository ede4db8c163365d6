// SPDX-License-Identifier: Apache-2.0
// The module's side of a fake: recording calls, and the behaviour that all
// modules share. It
// is compiled into each fake module, whose source says which control it serves.
#pragma once

#include "modules/ModuleResults.h"
#include "tests/fakes/module/FakeCalls.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace fake {

// Of the module that this is compiled into.
FakeCalls& calls();

inline void write(std::ostream& out, const uint16_t* text) {
    if (text == nullptr) {
        out << "null";
        return;
    }
    out << '"';
    for (; *text != 0; ++text) {
        out << static_cast<char>(*text);
    }
    out << '"';
}
inline void write(std::ostream& out, int64_t number) {
    out << number;
}

// Records a call and returns its scripted result.
template<typename... Arguments>
int32_t called(const char* name, Arguments... arguments) {
    FakeCalls& control = calls();
    if (control.recording) {
        std::ostringstream line;
        [[maybe_unused]] const char* separator = "";
        line << name << '(';
        ((line << separator, write(line, arguments), separator = ", "), ...);
        line << ')';
        control.calls.push_back(line.str());
    }
    if (auto next = control.nextResults.find(name);
        next != control.nextResults.end() && !next->second.empty()) {
        const int32_t result = next->second.front();
        next->second.pop_front();
        return result;
    }
    const auto result = control.results.find(name);
    return result != control.results.end() ? result->second : MODULE_OK;
}

// Reads the number after a prefix of the file's name; nothing without the prefix.
inline std::optional<int64_t> numberInName(const uint16_t* path, const std::string& prefix) {
    std::string name;
    for (; *path != 0; ++path) {
        name = *path == '/' ? "" : name + static_cast<char>(*path);
    }
    if (name.compare(0, prefix.size(), prefix) != 0) {
        return std::nullopt;
    }
    return std::strtoll(name.c_str() + prefix.size(), nullptr, 10);
}

inline int32_t giveText(const std::u16string& text, uint16_t* out, int32_t capacityUnits, int32_t* length) {
    *length = static_cast<int32_t>(text.size());
    if (out != nullptr && capacityUnits >= 1) {
        const size_t units = std::min(text.size(), static_cast<size_t>(capacityUnits) - 1);
        std::copy_n(text.begin(), units, out);
        out[units] = 0;
    }
    return MODULE_OK;
}

// Records a call; returns its scripted failure, or MODULE_BAD_ARGUMENT for a
// null document.
template<typename... Arguments>
int32_t entered(const void* doc, const char* name, Arguments... arguments) {
    const int32_t code = called(name, arguments...);
    return code == MODULE_OK && doc == nullptr ? static_cast<int32_t>(MODULE_BAD_ARGUMENT) : code;
}

// The whole of a call that opens a file but for the document: its scripted
// failure, or that of a file named "code-N...".
template<typename... Arguments>
int32_t opening(const char* name, void** doc, const uint16_t* path, Arguments... arguments) {
    *doc = nullptr;
    const int32_t code = called(name, path, arguments...);
    return code != MODULE_OK ? code : static_cast<int32_t>(numberInName(path, "code-").value_or(MODULE_OK));
}
inline int32_t opened(void** doc, void* document) {
    *doc = document;
    ++calls().openDocuments;
    return MODULE_OK;
}
template<typename Document>
int32_t close(const char* name, void** doc) {
    called(name);
    if (*doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    delete static_cast<Document*>(*doc);
    *doc = nullptr;
    --calls().openDocuments;
    return MODULE_OK;
}

// A function that exists for the loader: a call shows in the list and fails.
inline int32_t unsupported(const char* name) {
    called(name);
    return MODULE_NOT_SUPPORTED;
}

inline int32_t setHighlightColor(const void* doc, const char* name, const uint8_t rgb[3]) {
    const int32_t code = entered(doc, name, rgb[0], rgb[1], rgb[2]);
    if (code == MODULE_OK) {
        calls().highlightColor.assign(rgb, rgb + 3);
    }
    return code;
}

// Complete calls for a document's text and time properties.
inline int32_t giveProperty(const void* doc, const char* function, const std::u16string& value,
                            uint16_t* text, int32_t capacityBytes, int32_t* length) {
    const int32_t code = entered(doc, function, capacityBytes);
    return code != MODULE_OK ? code : giveText(value, text, capacityBytes / 2, length);
}
inline int32_t giveTime(const void* doc, const char* function, time_t value, time_t* time) {
    const int32_t code = entered(doc, function);
    if (code == MODULE_OK) {
        *time = value;
    }
    return code;
}

// Returns an array to the caller, altered as the control says: null or with
// another count.
template<typename Control, typename Record>
int32_t giveArray(const Control& control, const std::vector<Record>& list, const Record** array,
                  int32_t* count) {
    *array = list.empty() || control.nullArrays ? nullptr : list.data();
    *count = control.arrayCount.value_or(static_cast<int32_t>(list.size()));
    return MODULE_OK;
}

} // namespace fake
