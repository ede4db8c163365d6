// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/DocumentLoading.h"
#include "engine/office/word/References.h"
#include "engine/office/word/TilePainter.h"

namespace lectern::engine {

// Lays out a note or comment as a new document as wide as the surface, and
// paints its first rows. The letters of a text that is too long become smaller,
// but not so small that they cannot be read. Uses the view of `from` to copy the text. Returns a
// module_result code; the surface is written on success only.
int32_t paintSideText(Office::Private& office, const OpenedDocument& from, const SideText& text,
                      const Surface& surface, int32_t dpi);

} // namespace lectern::engine
