// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DocumentInformation.h"
#include "engine/office/Uno.h"

namespace lectern::engine {

// The properties that a document of any kind keeps of itself. Throws what the
// suite throws.
DocumentInformation informationOf(const css::uno::Reference<css::uno::XInterface>& model);

} // namespace lectern::engine
