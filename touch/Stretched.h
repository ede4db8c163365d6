// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPixmap.h"

#include <cstdint>

// Stretches a whole picture to a rectangle of a frame of width * height pixels, by the
// nearest pixels. The rectangle may reach beyond the frame; the rest of the frame stays
// unchanged.
void copyStretched(const CpPixmap& picture, const CpRect& to, uint32_t* frame, int width, int height);
