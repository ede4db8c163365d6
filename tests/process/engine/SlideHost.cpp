// SPDX-License-Identifier: Apache-2.0
#include "tests/process/engine/SlideHost.h"

#include "tests/process/engine/EngineHost.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace lectern::test {
namespace {

SSTGFunc load() {
    void* module = dlopen(MODULE_FOLDER "/SlideshowToGoModule.so", RTLD_NOW);
    if (module == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::abort();
    }
    SSTGFunc functions;
#define LECTERN_BIND(name)                                                                                   \
    functions.name = reinterpret_cast<decltype(functions.name)>(dlsym(module, #name));                       \
    if (functions.name == nullptr) {                                                                         \
        std::fprintf(stderr, "%s is missing\n", #name);                                                      \
        std::abort();                                                                                        \
    }
    SSTG_FUNCTIONS(LECTERN_BIND)
#undef LECTERN_BIND
    return functions;
}

} // namespace

const SSTGFunc& slideModule() {
    static const SSTGFunc functions = load();
    return functions;
}

void* slideSymbol(const char* name) {
    slideModule(); // loads it
    void* const module = dlopen(MODULE_FOLDER "/SlideshowToGoModule.so", RTLD_NOW | RTLD_NOLOAD);
    void* const function = module != nullptr ? dlsym(module, name) : nullptr;
    if (function == nullptr) {
        std::fprintf(stderr, "%s is missing\n", name);
        std::abort();
    }
    return function;
}

std::int32_t Slideshow::open(const std::string& path, const std::string& temporaryFolder) {
    return slideModule().sstg_open_file(wide(path).data(), wide("/usr/share/fonts").data(),
                                        wide(temporaryFolder).data(), &mHandle);
}

std::int32_t Slideshow::close() {
    return slideModule().sstg_close_file(&mHandle);
}

} // namespace lectern::test
