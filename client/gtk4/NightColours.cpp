// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/NightColours.h"

namespace lectern::gtk4 {

// The lightness L of a colour is a weighted sum of its parts; the weights are those of
// the primaries of sRGB (IEC 61966-2-1). Every part becomes itself - L + (1 - L), so that
// the differences of the parts, the hue, stay.
ColourChange nightColours() {
    constexpr float RED = 0.2126f;
    constexpr float GREEN = 0.7152f;
    constexpr float BLUE = 0.0722f;
    const float rows[16] = {
        1 - 2 * RED,
        -2 * RED,
        -2 * RED,
        0, //
        -2 * GREEN,
        1 - 2 * GREEN,
        -2 * GREEN,
        0, //
        -2 * BLUE,
        -2 * BLUE,
        1 - 2 * BLUE,
        0, //
        0,
        0,
        0,
        1,
    };
    ColourChange change;
    graphene_matrix_init_from_float(&change.matrix, rows);
    graphene_vec4_init(&change.offset, 1, 1, 1, 0);
    return change;
}

} // namespace lectern::gtk4
