// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Office.h"
#include "engine/office/Uno.h"

#include <LibreOfficeKit/LibreOfficeKit.hxx>

namespace lectern::engine {

struct Office::Private {
    // Lives as long as the process: the suite cannot be shut down reliably, so
    // the process ends with _exit and nothing deletes this.
    lok::Office* suite;
    css::uno::Reference<css::uno::XComponentContext> context;
};

} // namespace lectern::engine
