// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gdk/gdk.h>

#include <optional>

namespace lectern::gtk4 {

// What a key does to a view.
enum class KeyMove {
    Up,
    Down,
    Left,
    Right,
    PageUp,
    PageDown,
    Start,
    End,
    PreviousSlide,
    NextSlide,
    ZoomIn,
    ZoomOut,
    ZoomToFit,
};

// Where a key is pressed.
struct KeyPlace {
    bool hasSlides = false;    // a presentation
    bool isMagnified = false;  // more than the fit: arrows move the picture
    bool isPresenting = false; // every key turns slides
};

// Nothing for a key that the view leaves to others.
std::optional<KeyMove> keyMove(unsigned int key, GdkModifierType modifiers, const KeyPlace& place);

} // namespace lectern::gtk4
