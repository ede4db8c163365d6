// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/AnyFile.h"

#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace lectern::engine::fake {

// The description of a fake document: one "key=value" in each line of its file.
using Settings = std::map<std::string, std::string>;

inline Settings readSettings(const std::string& path) {
    Settings settings;
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        const std::size_t equals = line.find('=');
        settings[line.substr(0, equals)] = equals == std::string::npos ? "" : line.substr(equals + 1);
    }
    return settings;
}

// Tells the percentages of the document's "progress", separated by spaces.
inline void tellProgress(const Settings& settings, const LoadProgress& progress) {
    const auto found = settings.find("progress");
    std::istringstream percentages(found == settings.end() ? std::string() : found->second);
    for (std::int32_t percent = 0; progress && percentages >> percent;) {
        progress(percent);
    }
}

} // namespace lectern::engine::fake
