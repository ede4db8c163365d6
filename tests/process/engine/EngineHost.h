// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/ModuleResults.h"
#include "modules/WTGFunc.h"

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::test {

// The word module, loaded from the build tree as the service loads it.
struct WordModule : WTGFunc {
    void (*stopSoon)() = nullptr;
    void (*prepare)(const std::uint16_t* temporaryFolder) = nullptr;
};
const WordModule& wordModule();

// Why a module's document does not come back, or 0; `module` is its file name.
std::int32_t lossOf(const char* module, void* document);

// Converts to UTF-16 for the module.
std::vector<std::uint16_t> wide(const std::string& utf8);

// A document that is closed on destruction.
class Document {
public:
    Document() = default;
    ~Document() { close(); }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    std::int32_t open(const std::string& path, const std::string& temporaryFolder,
                      const std::string& password = "");
    std::int32_t close();
    void* get() const { return mHandle; }

private:
    void* mHandle = nullptr;
};

// A running engine process.
struct EngineInfo {
    pid_t pid = 0;
    pid_t server = 0;   // the fork server that made it, or the process that took its place
    std::string folder; // its temporary folder
};
// The fork servers of a process that run.
std::vector<pid_t> forkServersOf(pid_t service);
// The engines that these have made and that run.
std::vector<EngineInfo> enginesOf(pid_t service);

} // namespace lectern::test
