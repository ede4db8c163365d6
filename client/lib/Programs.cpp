// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Programs.h"

#include "base/GLibHolder.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace lectern {

namespace {

using std::filesystem::path;

path ownFolder() {
    std::error_code failure;
    return std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
}

// The folder of the shared library that contains this code, or of the program
// when linked statically.
path libraryFolder() {
    Dl_info self{};
    std::error_code failure;
    return dladdr(reinterpret_cast<const void*>(&ownFolder), &self) != 0
               ? std::filesystem::canonical(self.dli_fname, failure).parent_path()
               : path();
}

// Searches a folder and the installation around it. Libraries may lie two
// levels deep, as in lib/x86_64-linux-gnu.
std::string findAround(const path& folder, const char* name) {
    const path up = folder.parent_path();
    for (const path& candidate :
         {folder / name, up / "bin" / name, up / "libexec" / "lectern" / name,
          up.parent_path() / "bin" / name, up.parent_path() / "libexec" / "lectern" / name}) {
        if (!folder.empty() && access(candidate.c_str(), X_OK) == 0) {
            return candidate;
        }
    }
    return {};
}

} // namespace

std::string findProgram(const char* name, const char* overridingVariable) {
    if (const char* path = std::getenv(overridingVariable); path != nullptr && *path != '\0') {
        return path;
    }
    for (const std::filesystem::path& folder : {ownFolder(), libraryFolder()}) {
        if (std::string found = findAround(folder, name); !found.empty()) {
            return found;
        }
    }
    const GLibHolder<char> onPath(g_find_program_in_path(name));
    return onPath ? onPath.get() : "";
}

} // namespace lectern
