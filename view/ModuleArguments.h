// SPDX-License-Identifier: Apache-2.0
// Arguments that all views pass to their rendering modules.
#pragma once

#include <cstdint>

inline constexpr char FONT_DIRECTORY[] = "/usr/share/fonts";
inline constexpr char TEMPORARY_DIRECTORY[] = "/tmp";

inline constexpr double DOTS_PER_INCH = 72.0; // at a zoom of 1

// The highlight colour of search hits: red, green, blue.
inline constexpr uint8_t FOUND_COLOUR[3] = {128, 192, 255};
