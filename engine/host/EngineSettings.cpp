// SPDX-License-Identifier: Apache-2.0
#include "engine/host/EngineSettings.h"

#include <dlfcn.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace lectern::engine {
namespace {

using std::chrono::milliseconds;

#ifdef __SANITIZE_ADDRESS__
constexpr int SLOWNESS = 6; // an engine with the sanitizer is this many times slower
#else
constexpr int SLOWNESS = 1;
#endif

// The engine program that belongs to this library, found by the library's path.
std::string ownEngineProgram() {
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&ownEngineProgram), &self) == 0 || self.dli_fname == nullptr) {
        return {};
    }
    const std::string library = self.dli_fname;
    const std::string folder = library.substr(0, library.rfind('/') + 1);
    const std::string installed = folder + LECTERN_ENGINE_INSTALLED;
    return access(installed.c_str(), X_OK) == 0 ? installed : folder + LECTERN_ENGINE_FROM_BUILD;
}

milliseconds limitFrom(const char* variable, milliseconds otherwise) {
    const char* text = std::getenv(variable);
    if (text == nullptr) {
        return otherwise;
    }
    const char* end = text + std::strlen(text);
    unsigned value = 0;
    const auto [rest, failure] = std::from_chars(text, end, value);
    return failure == std::errc() && rest == end && value > 0 ? milliseconds(value) : otherwise;
}

// By its name: what the suite reads line by line, or converts first.
bool isText(const std::string& path) {
    constexpr const char* EXTENSIONS[] = {".txt", ".csv", ".tsv", ".htm", ".html"};
    const std::size_t dot = path.rfind('.');
    return dot != std::string::npos &&
           std::any_of(std::begin(EXTENSIONS), std::end(EXTENSIONS),
                       [&](const char* each) { return strcasecmp(path.c_str() + dot, each) == 0; });
}

} // namespace

LaunchSettings LaunchSettings::forFolder(const std::string& temporaryParent) {
    const char* program = std::getenv("LECTERN_ENGINE");
    return {program != nullptr ? program : ownEngineProgram(), temporaryParent,
            std::getenv("LECTERN_ENGINE_VERBOSE") != nullptr};
}

bool TimeLimits::isTooLong(const std::string& path, off_t bytes) {
    constexpr off_t LONGEST_TEXT = off_t{32} << 20;
    return isText(path) && bytes > LONGEST_TEXT;
}

TimeLimits TimeLimits::forDocument(const std::string& path, off_t bytes) {
    constexpr off_t BYTES_PER_SHARE = off_t{4} << 20; // the limit grows by its base value for each
    constexpr off_t MOST_SHARES = 6;
    TimeLimits limits;
    limits.open *= SLOWNESS;
    limits.call *= SLOWNESS;
    limits.busy *= SLOWNESS;
    if (isText(path)) {
        const off_t shares = std::min(1 + bytes / BYTES_PER_SHARE, MOST_SHARES);
        limits.open *= shares;
        limits.call *= shares;
        limits.busy *= shares;
    }
    limits.open = limitFrom("LECTERN_ENGINE_OPEN_LIMIT_MS", limits.open);
    limits.call = limitFrom("LECTERN_ENGINE_CALL_LIMIT_MS", limits.call);
    limits.busy = limitFrom("LECTERN_ENGINE_BUSY_LIMIT_MS", limits.busy);
    return limits;
}

milliseconds TimeLimits::betweenCalls() {
    constexpr std::chrono::minutes LONGEST(5);
    return limitFrom("LECTERN_ENGINE_IDLE_LIMIT_MS", LONGEST * SLOWNESS);
}

} // namespace lectern::engine
