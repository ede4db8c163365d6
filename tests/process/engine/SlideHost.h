// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/ModuleResults.h"
#include "modules/SSTGFunc.h"

#include <cstdint>
#include <string>

namespace lectern::test {

// The presentation module, loaded from the build tree as the service loads it.
const SSTGFunc& slideModule();

// One of its optional functions. It must have it.
void* slideSymbol(const char* name);
template<class Function>
Function* slideFunction(const char* name) {
    return reinterpret_cast<Function*>(slideSymbol(name));
}

// A presentation that is closed on destruction.
class Slideshow {
public:
    Slideshow() = default;
    ~Slideshow() { close(); }
    Slideshow(const Slideshow&) = delete;
    Slideshow& operator=(const Slideshow&) = delete;

    std::int32_t open(const std::string& path, const std::string& temporaryFolder);
    std::int32_t close();
    void* get() const { return mHandle; }

private:
    void* mHandle = nullptr;
};

} // namespace lectern::test
