// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"
#include "modules/ModuleResults.h"

#include <cstdio>
#include <exception>

namespace lectern::engine {

// Runs work that may throw. An exception is written to standard error and
// becomes MODULE_FAILED.
template<class Work>
int32_t guarded(Work work) noexcept {
    try {
        return work();
    } catch (const css::uno::Exception& error) {
        std::fprintf(stderr, "office: %s\n",
                     OUStringToOString(error.Message, RTL_TEXTENCODING_UTF8).getStr());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "office: %s\n", error.what());
    } catch (...) {
        std::fprintf(stderr, "office: unknown failure\n");
    }
    return MODULE_FAILED;
}

} // namespace lectern::engine
