// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/text/XTextDocument.hpp>

namespace lectern::engine {

// Accepts all tracked changes in memory, so that the document is shown as it will
// be: insertions are ordinary text, and deletions are gone. In a document that is
// protected from changes they stay, but deletions are not shown.
void acceptTrackedChanges(const css::uno::Reference<css::text::XTextDocument>& model);

} // namespace lectern::engine
