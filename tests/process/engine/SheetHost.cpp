// SPDX-License-Identifier: Apache-2.0
#include "tests/process/engine/SheetHost.h"

#include "tests/process/engine/EngineHost.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace lectern::test {
namespace {

STGFunc load() {
    void* module = dlopen(MODULE_FOLDER "/SheetToGoModule.so", RTLD_NOW);
    if (module == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::abort();
    }
    STGFunc functions;
    const auto symbol = [&](const char* name) {
        void* address = dlsym(module, name);
        if (address == nullptr) {
            std::fprintf(stderr, "%s is missing\n", name);
            std::abort();
        }
        return address;
    };
#define LECTERN_BIND(name) functions.name = reinterpret_cast<decltype(functions.name)>(symbol(#name));
    STG_FUNCTIONS(LECTERN_BIND)
#undef LECTERN_BIND
    return functions;
}

} // namespace

const STGFunc& sheetModule() {
    static const STGFunc functions = load();
    return functions;
}

std::int32_t WorkbookHandle::open(const std::string& path, const std::string& temporaryFolder,
                                  const std::string& password) {
    return sheetModule().stg_open_file(wide(path).data(), wide(password).data(),
                                       wide("/usr/share/fonts").data(), wide(temporaryFolder).data(),
                                       &mHandle);
}

std::int32_t WorkbookHandle::close() {
    return sheetModule().stg_close_file(&mHandle);
}

} // namespace lectern::test
