// SPDX-License-Identifier: Apache-2.0
// The service's side of the engine protocol: Lectern's own modules with engines that
// answer as the input tells. Input: bytes for the engines' and the client's choices.
#include "tests/process/liar/Session.h"

#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

std::string& folder() {
    static std::string path;
    return path;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    char name[] = "/tmp/lectern-fuzz-XXXXXX";
    folder() = mkdtemp(name);
    std::atexit([] { std::filesystem::remove_all(folder()); });
    lectern::test::startServiceWithLiars(LYING_ENGINE);
    setenv("LECTERN_ENGINE_CALL_LIMIT_MS", "20", 1); // most of a run is waiting for this
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    lectern::test::runSession(folder(), {reinterpret_cast<const char*>(data), size});
    return 0;
}
