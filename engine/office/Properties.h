// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/document/XDocumentProperties.hpp>

namespace lectern::engine {

css::uno::Reference<css::document::XDocumentProperties>
documentProperties(const css::uno::Reference<css::uno::XInterface>& model);

// Returns seconds since 1970 in UTC, 0 for an unset time.
int64_t toUnixTime(const css::util::DateTime& time);

} // namespace lectern::engine
