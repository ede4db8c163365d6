// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <graphene.h>

namespace lectern::gtk4 {

// A linear change of colours: colour * matrix + offset, each a vector of red, green,
// blue and alpha from 0 to 1.
struct ColourChange {
    graphene_matrix_t matrix;
    graphene_vec4_t offset;
};

// Inverts the lightness and keeps the hues: white becomes black, dark red light red.
ColourChange nightColours();

} // namespace lectern::gtk4
