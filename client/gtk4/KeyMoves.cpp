// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/KeyMoves.h"

namespace lectern::gtk4 {

namespace {

std::optional<KeyMove> moveOfKey(unsigned int key, bool isShifted) {
    switch (key) {
    case GDK_KEY_Up:
    case GDK_KEY_KP_Up:
        return KeyMove::Up;
    case GDK_KEY_Down:
    case GDK_KEY_KP_Down:
        return KeyMove::Down;
    case GDK_KEY_Left:
    case GDK_KEY_KP_Left:
        return KeyMove::Left;
    case GDK_KEY_Right:
    case GDK_KEY_KP_Right:
        return KeyMove::Right;
    case GDK_KEY_Page_Up:
    case GDK_KEY_KP_Page_Up:
    case GDK_KEY_BackSpace:
        return KeyMove::PageUp;
    case GDK_KEY_Page_Down:
    case GDK_KEY_KP_Page_Down:
        return KeyMove::PageDown;
    case GDK_KEY_space:
        return isShifted ? KeyMove::PageUp : KeyMove::PageDown;
    case GDK_KEY_Home:
    case GDK_KEY_KP_Home:
        return KeyMove::Start;
    case GDK_KEY_End:
    case GDK_KEY_KP_End:
        return KeyMove::End;
    case GDK_KEY_plus:
    case GDK_KEY_equal:
    case GDK_KEY_KP_Add:
        return KeyMove::ZoomIn;
    case GDK_KEY_minus:
    case GDK_KEY_KP_Subtract:
        return KeyMove::ZoomOut;
    case GDK_KEY_0:
    case GDK_KEY_KP_0:
        return KeyMove::ZoomToFit;
    default:
        return {};
    }
}

KeyMove moveAmongSlides(KeyMove move, const KeyPlace& place) {
    const bool arrowsTurn = place.isPresenting || !place.isMagnified;
    switch (move) {
    case KeyMove::PageUp:
        return KeyMove::PreviousSlide;
    case KeyMove::PageDown:
        return KeyMove::NextSlide;
    case KeyMove::Left:
    case KeyMove::Up:
        return arrowsTurn ? KeyMove::PreviousSlide : move;
    case KeyMove::Right:
    case KeyMove::Down:
        return arrowsTurn ? KeyMove::NextSlide : move;
    default:
        return move;
    }
}

} // namespace

std::optional<KeyMove> keyMove(unsigned int key, GdkModifierType modifiers, const KeyPlace& place) {
    const std::optional<KeyMove> move = moveOfKey(key, (modifiers & GDK_SHIFT_MASK) != 0);
    if (!move || (modifiers & (GDK_ALT_MASK | GDK_SUPER_MASK | GDK_META_MASK)) != 0) {
        return {};
    }
    const bool zooms = *move == KeyMove::ZoomIn || *move == KeyMove::ZoomOut || *move == KeyMove::ZoomToFit;
    const bool jumps = *move == KeyMove::Start || *move == KeyMove::End;
    if ((modifiers & GDK_CONTROL_MASK) != 0 && !zooms && !jumps) {
        return {};
    }
    return place.hasSlides ? moveAmongSlides(*move, place) : *move;
}

} // namespace lectern::gtk4
