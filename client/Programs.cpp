// SPDX-License-Identifier: Apache-2.0
#include "client/Programs.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "client/GLibHolder.h"

namespace lectern {

std::string findProgram(const char* name, const char* overridingVariable) {
    if (const char* path = std::getenv(overridingVariable); path != nullptr && *path != '\0') {
        return path;
    }
    std::error_code failure;
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (!failure) {
        const std::filesystem::path folder = own.parent_path();
        for (const auto& candidate : {folder / name, folder.parent_path() / "bin" / name,
                                      folder.parent_path() / "libexec" / "lectern" / name}) {
            if (access(candidate.c_str(), X_OK) == 0) {
                return candidate;
            }
        }
    }
    const GLibHolder<char> onPath(g_find_program_in_path(name));
    return onPath ? onPath.get() : "";
}

} // namespace lectern
