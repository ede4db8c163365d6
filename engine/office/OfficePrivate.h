// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Office.h"
#include "engine/office/Uno.h"

#include <LibreOfficeKit/LibreOfficeKit.hxx>

#include <string>

namespace lectern::engine {

struct Office::Private {
    // Lives as long as the process: the suite cannot be shut down reliably, so
    // the process ends with _exit and nothing deletes this.
    lok::Office* suite;
    css::uno::Reference<css::uno::XComponentContext> context;
    std::string folder;  // the profile's
    size_t prepared = 0; // how many formats prepareNext has prepared
};

} // namespace lectern::engine
