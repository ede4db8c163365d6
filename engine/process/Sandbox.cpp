// SPDX-License-Identifier: Apache-2.0
#include "engine/process/Sandbox.h"

#include "engine/process/Capabilities.h"
#include "engine/process/FileRules.h"
#include "engine/process/Namespaces.h"
#include "engine/process/ResourceLimits.h"
#include "engine/process/SystemCallFilter.h"

#include <sys/prctl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace lectern::engine {
namespace {

// What the C library and the suite's libraries read while a document is used.
constexpr const char* SYSTEM_FILES[] = {
    // Shared libraries, which are also loaded late, the converters of the C library's
    // encodings, and its locales.
    "/usr/lib",
    "/usr/lib32",
    "/usr/lib64",
    "/lib",
    "/lib64",
    "/usr/local/lib",
    "/etc/ld.so.cache",
    "/usr/share/locale",
    "/usr/share/i18n",
    // The local time.
    "/etc/localtime",
    "/usr/share/zoneinfo",
    // The number of processors, which decides about threads.
    "/sys/devices/system/cpu/online",
    "/proc/sys/vm/overcommit_memory",
    // Random numbers, for names of files and for passwords of documents.
    "/dev/urandom",
    "/dev/random",
    "/dev/null",
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    // The sanitizers look for the stacks of threads, and for the sources of what they report.
    "/proc/self",
#endif
};

// The folders from which the loader takes libraries besides.
std::vector<std::string> libraryFolders() {
    std::vector<std::string> folders;
    const char* path = std::getenv("LD_LIBRARY_PATH");
    std::istringstream names(path != nullptr ? path : "");
    for (std::string folder; std::getline(names, folder, ':');) {
        if (!folder.empty()) {
            folders.push_back(folder);
        }
    }
    return folders;
}

bool limitWriting(const std::string& folder) {
    FileRules rules(FileRules::Covers::Writing);
    return rules.allowEverythingIn(folder) && rules.allowWriting("/dev/null") && rules.enforce();
}

bool limitReading(const EngineFiles& files) {
    FileRules rules(FileRules::Covers::Reading);
    const auto allow = [&](const std::string& path) { return rules.allowReading(path); };
    const std::vector<std::string> libraries = libraryFolders();
    return rules.allowEverythingIn(files.folder) && rules.allowReading(files.document) &&
           rules.allowWriting("/dev/null") &&
           std::all_of(std::begin(SYSTEM_FILES), std::end(SYSTEM_FILES), allow) &&
           std::all_of(libraries.begin(), libraries.end(), allow) &&
           std::all_of(files.suite.begin(), files.suite.end(), allow) && rules.enforce();
}

} // namespace

bool enterSandbox(const std::string& folder) {
    const Namespaces namespaces = enterNamespaces();
    if (namespaces == Namespaces::Failed) {
        return false;
    }
    if (namespaces == Namespaces::OfUserToo) {
        limitProcessesOfNamespace();
    }
    if (!dropCapabilities() || prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        std::perror("engine: giving up privileges");
        return false;
    }
    if (FileRules::areSupported() && !limitWriting(folder)) {
        std::perror("engine: file rules");
        return false;
    }
    return allowOnly(allowedCalls());
}

bool confineEngine(const EngineFiles& files) {
    if (FileRules::areSupported() && !limitReading(files)) {
        std::perror("engine: file rules");
        return false;
    }
    return refuse(callsRefusedToEngine());
}

} // namespace lectern::engine
