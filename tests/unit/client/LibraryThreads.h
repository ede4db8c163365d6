// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

// The names of the threads that the library runs in this process, sorted.
inline std::vector<std::string> libraryThreads() {
    std::vector<std::string> names;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream file(task.path() / "comm");
        std::string name;
        if (std::getline(file, name) && name.rfind("lectern-", 0) == 0) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}
