// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/DocumentLoading.h"
#include "engine/office/word/References.h"
#include "engine/office/word/TilePainter.h"

namespace lectern::engine {

// Lays a note or comment out to the width of the surface, in a document of its
// own, and paints its first rows. The view of the document it comes from is
// used to copy it. A module_result code; the surface is written on success only.
int32_t paintSideText(Office::Private& office, const OpenedDocument& from, const SideText& text,
                      const Surface& surface, int32_t dpi);

} // namespace lectern::engine
