// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"
#include "modules/ModuleResults.h"

#include <cstdio>
#include <exception>
#include <new>

namespace lectern::engine {

// Runs work with the suite, which reports by exceptions, and returns its result
// code; MODULE_TOO_LARGE when there is not enough memory, MODULE_FAILED for any
// other exception, whose message goes to standard error.
template<class Work>
int32_t guardedInOffice(Work work) noexcept {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "office: not enough memory\n");
        return MODULE_TOO_LARGE;
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
