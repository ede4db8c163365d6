// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/SeparatedValues.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <vector>

namespace lectern::engine {
namespace {

// Of separators that fit equally well, the first. Commas also stand in words and numbers.
constexpr std::string_view SEPARATORS = "\t;,|";
constexpr size_t MOST_RECORDS = 100;

using Counts = std::array<size_t, SEPARATORS.size()>;

// How many of each separator the first records have.
std::vector<Counts> countSeparators(std::string_view text) {
    std::vector<Counts> records;
    Counts record{};
    bool isQuoted = false;
    bool isEmpty = true;
    for (size_t i = 0; i <= text.size() && records.size() < MOST_RECORDS; ++i) {
        const char c = i < text.size() ? text[i] : '\n';
        const size_t separator = SEPARATORS.find(c);
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (i == text.size() || (c == '\n' && !isQuoted)) {
            if (!isEmpty) {
                records.push_back(record);
            }
            record = {};
            isEmpty = true;
            continue;
        } else if (separator != std::string_view::npos && !isQuoted) {
            ++record[separator];
        }
        isEmpty = isEmpty && c == '\r';
    }
    return records;
}

// The number of records that have equally many of a separator, and at least one.
size_t agreeing(const std::vector<Counts>& records, size_t separator) {
    std::map<size_t, size_t> recordsWith;
    for (const Counts& record : records) {
        recordsWith[record[separator]] += record[separator] > 0 ? 1 : 0;
    }
    size_t most = 0;
    for (const auto& [count, number] : recordsWith) {
        most = std::max(most, number);
    }
    return most;
}

} // namespace

SeparatedValues separatedValuesOf(std::string_view utf8) {
    constexpr std::string_view NAMED = "sep=";
    const std::string_view line = utf8.substr(0, utf8.find_first_of("\r\n"));
    if (line.size() == NAMED.size() + 1 && line.starts_with(NAMED)) {
        return {line.back(), 2};
    }
    const std::vector<Counts> records = countSeparators(utf8);
    SeparatedValues best;
    size_t bestNumber = 0;
    for (size_t i = 0; i < SEPARATORS.size(); ++i) {
        if (const size_t number = agreeing(records, i); number > bestNumber) {
            best.separator = SEPARATORS[i];
            bestNumber = number;
        }
    }
    return best;
}

} // namespace lectern::engine
