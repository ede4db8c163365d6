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

// The driver may run from another folder, to which its modules were copied.
std::string moduleFolder() {
    const char* copies = std::getenv("LECTERN_TEST_MODULES");
    return copies != nullptr ? copies : MODULE_FOLDER;
}

WordModule load() {
    void* module = dlopen((moduleFolder() + "/WordToGoModule.so").c_str(), RTLD_NOW);
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

struct ProcessInfo {
    std::string name;
    pid_t parent = 0;
    bool zombie = false;
};

// Reads /proc/PID/stat. Its second field is the name in parentheses, which may
// contain any characters.
ProcessInfo processInfo(const fs::path& process) {
    const std::string stat = readFile(process / "stat");
    const std::size_t start = stat.find('(');
    const std::size_t end = stat.rfind(')');
    if (start == std::string::npos || end == std::string::npos) {
        return {};
    }
    return {stat.substr(start + 1, end - start - 1),
            static_cast<pid_t>(std::strtol(stat.c_str() + end + 4, nullptr, 10)), stat[end + 2] == 'Z'};
}

// The processes of a name that run as children of another.
std::vector<pid_t> children(const std::string& name, pid_t parent) {
    std::vector<pid_t> found;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc")) {
        const auto pid = static_cast<pid_t>(std::strtol(entry.path().filename().c_str(), nullptr, 10));
        const ProcessInfo info = pid > 0 ? processInfo(entry.path()) : ProcessInfo();
        if (info.name == name && info.parent == parent && !info.zombie) {
            found.push_back(pid);
        }
    }
    return found;
}

// The deepest of the folders that a process has open: an engine has its own, which
// is in the fork server's, and that.
std::string folderOf(pid_t engine) {
    std::string deepest;
    std::error_code error;
    for (fs::directory_iterator file("/proc/" + std::to_string(engine) + "/fd", error), end;
         !error && file != end; file.increment(error)) {
        std::error_code closed;
        const std::string target = fs::read_symlink(file->path(), closed);
        if (fs::is_directory(target, closed) && target.size() > deepest.size()) {
            deepest = target;
        }
    }
    return deepest;
}

} // namespace

const WordModule& wordModule() {
    static const WordModule functions = load();
    return functions;
}

std::int32_t lossOf(const char* module, void* document) {
    void* loaded = dlopen((MODULE_FOLDER "/" + std::string(module)).c_str(), RTLD_NOW);
    return reinterpret_cast<std::int32_t (*)(void*)>(symbol(loaded, "lectern_module_lost"))(document);
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

std::vector<pid_t> forkServersOf(pid_t service) {
    return children("lectern-forksrv", service);
}

std::vector<EngineInfo> enginesOf(pid_t service) {
    std::vector<EngineInfo> engines;
    for (const pid_t server : forkServersOf(service)) {
        for (const pid_t pid : children("lectern-engine", server)) {
            engines.push_back({pid, server, folderOf(pid)});
        }
    }
    return engines;
}

} // namespace lectern::test
