// SPDX-License-Identifier: Apache-2.0
#include "tests/process/engine/EngineHost.h"

#include <dlfcn.h>

#include <codecvt>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>

namespace lectern::test {
namespace {

namespace fs = std::filesystem;

void* symbol(void* module, const char* name) {
    void* address = dlsym(module, name);
    if (address == nullptr) {
        std::fprintf(stderr, "%s is missing\n", name);
        std::abort();
    }
    return address;
}

WordModule load() {
    void* module = dlopen(MODULE_FOLDER "/WordToGoModule.so", RTLD_NOW);
    if (module == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::abort();
    }
    WordModule functions;
#define LECTERN_BIND(name) functions.name = reinterpret_cast<decltype(functions.name)>(symbol(module, #name));
    WTG_FUNCTIONS(LECTERN_BIND)
#undef LECTERN_BIND
    functions.stopSoon = reinterpret_cast<void (*)()>(symbol(module, "lectern_module_stop_soon"));
    functions.prepare =
        reinterpret_cast<void (*)(const std::uint16_t*)>(symbol(module, "lectern_module_prepare"));
    return functions;
}

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf(); // fails silently when the process has ended
    return contents.str();
}

// Reads the parent from /proc/PID/stat. Its second field may contain any
// characters; it ends at the last parenthesis.
pid_t parentOf(const std::string& stat) {
    const std::size_t end = stat.rfind(')');
    return end == std::string::npos ? 0
                                    : static_cast<pid_t>(std::strtol(stat.c_str() + end + 4, nullptr, 10));
}

} // namespace

const WordModule& wordModule() {
    static const WordModule functions = load();
    return functions;
}

std::vector<std::uint16_t> wide(const std::string& utf8) {
    std::wstring_convert<std::codecvt_utf8_utf16<char16_t>, char16_t> converter;
    const std::u16string text = converter.from_bytes(utf8);
    std::vector<std::uint16_t> units(text.begin(), text.end());
    units.push_back(0);
    return units;
}

std::int32_t Document::open(const std::string& path, const std::string& temporaryFolder,
                            const std::string& password) {
    return wordModule().wtg_open_file(wide(path).data(), wide(password).data(),
                                      wide("/usr/share/fonts").data(), wide(temporaryFolder).data(),
                                      &mHandle);
}

std::int32_t Document::close() {
    return wordModule().wtg_close_file(&mHandle);
}

std::vector<EngineInfo> enginesOf(pid_t parent) {
    std::vector<EngineInfo> engines;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc")) {
        const auto pid = static_cast<pid_t>(std::strtol(entry.path().filename().c_str(), nullptr, 10));
        if (pid > 0 && parentOf(readFile(entry.path() / "stat")) == parent) {
            const std::string arguments = readFile(entry.path() / "cmdline");
            const std::size_t first = arguments.find('\0');
            const std::string folder =
                first == std::string::npos ? "" : std::string(arguments.c_str() + first + 1);
            engines.push_back({pid, folder});
        }
    }
    return engines;
}

} // namespace lectern::test
