// SPDX-License-Identifier: Apache-2.0
// The stretch: its buffer, its resolution, its position in the text, its moves.

#include "engine/modules/word/WordHandle.h"
#include "modules/WordToGoModule.h"

using namespace lectern::engine;

namespace {

// Sends the engine a surface of another size; the old one stays when that fails.
std::int32_t replaceSurface(WordHandle& handle, std::uint32_t* pixels, std::int32_t width,
                            std::int32_t height) {
    gboolean painted = FALSE;
    handle.forgetStretch();
    if (const std::int32_t result = handle.giveSurface(width, height, painted); result != MODULE_OK) {
        return result;
    }
    handle.pixels = pixels;
    handle.painted = painted != FALSE;
    handle.borrowed = false;
    handle.refreshPixels();
    return MODULE_OK;
}

// The amount moved is always set: to 0 when nothing moved.
template<class Method>
std::int32_t scroll(void* doc, std::int32_t view, std::int32_t rows, std::int32_t* scrolled, Method method) {
    if (doc == nullptr || scrolled == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *scrolled = 0;
    if (view != 0 || rows < 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        gint moved = 0;
        const std::int32_t result = callForStretch(handle, method, std::tuple(gint{rows}), &moved);
        if (result != MODULE_OK) {
            return result;
        }
        // The view relies on this: a move further than asked would make its
        // position in the text wrong.
        if (moved < 0 || moved > rows) {
            handle.forgetStretch();
            return MODULE_FAILED;
        }
        *scrolled = moved;
        return MODULE_OK;
    });
}

// Asks for the stretch's place unless it is known; `use` takes the handle and
// the place. What a lost engine told last is not used.
template<class Use>
std::int32_t onPlace(void* doc, Use use) {
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        if (!handle.place || !handle.engine->isAlive()) {
            const std::int32_t result =
                callForStretch(handle, &lectern_ipc_word_call_stretch_place_sync, std::tuple<>());
            if (result != MODULE_OK || !handle.place) {
                return result != MODULE_OK ? result : MODULE_FAILED;
            }
        }
        return use(handle, *handle.place);
    });
}

std::int32_t getCharacter(void* doc, std::int32_t view, std::uint32_t* position,
                          std::uint32_t StretchPlace::*which) {
    if (view != 0 || position == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onPlace(doc, [&](const WordHandle&, const StretchPlace& place) {
        *position = place.*which;
        return MODULE_OK;
    });
}

} // namespace

void lectern::engine::keepStretch(WordHandle& handle, GVariant* stretch) {
    StretchPlace place;
    gint64 row = 0;
    gboolean known = FALSE;
    GVariant* positions = nullptr;
    GVariant* counts = nullptr;
    GVariant* rectangles = nullptr;
    g_variant_get(stretch, "(uuixb@au@au@ai)", &place.topLeft, &place.bottomRight, &place.usedRows, &row,
                  &known, &positions, &counts, &rectangles);
    const GLibHolder<GVariant> owners[] = {GLibHolder<GVariant>(positions), GLibHolder<GVariant>(counts),
                                           GLibHolder<GVariant>(rectangles)};
    if (place.usedRows >= 0) {
        handle.place = place;
        handle.state.shown = {handle.surface ? handle.surface->width() : 0,
                              handle.surface ? handle.surface->height() : 0, handle.state.dpi, row};
    }
    if (known != FALSE) {
        handle.nextRegions = regionsOf(positions, counts, rectangles);
    }
}

int32_t wtg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width, int32_t height) {
    if (view != 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) -> std::int32_t {
        handle.pixels = nullptr; // the caller may already have freed them
        if (pixels == nullptr || width < 1 || height < 1) {
            return MODULE_BAD_ARGUMENT;
        }
        if (std::int64_t{width} * height > SharedSurface::MAXIMUM_PIXELS) {
            return MODULE_TOO_LARGE;
        }
        if (!handle.surface || handle.borrowed || handle.surface->width() != width ||
            handle.surface->height() != height) {
            return replaceSurface(handle, pixels, width, height);
        }
        if (!handle.engine->isAlive()) {
            return MODULE_ENGINE_LOST;
        }
        handle.pixels = pixels;
        handle.refreshPixels();
        return MODULE_OK;
    });
}

int32_t wtg_set_dpi(void* doc, int32_t dpi) {
    if (dpi < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        handle.forgetStretch();
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_set_dpi_sync, std::tuple(gint{dpi}));
        if (result == MODULE_OK) {
            handle.state.dpi = dpi;
        }
        return result;
    });
}

int32_t wtg_get_character_count(void* doc, int32_t view, uint32_t* scratch, uint32_t* count) {
    if (view != 0 || scratch == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    const std::int32_t result = getNumber<guint>(doc, &lectern_ipc_word_call_character_count_sync, count);
    if (result == MODULE_OK) {
        *scratch = 0;
    }
    return result;
}

int32_t wtg_get_top_left_character(void* doc, int32_t view, uint32_t* position) {
    return getCharacter(doc, view, position, &StretchPlace::topLeft);
}

int32_t wtg_get_bottom_right_character(void* doc, int32_t view, uint32_t* position) {
    return getCharacter(doc, view, position, &StretchPlace::bottomRight);
}

int32_t wtg_get_vertical_last_used_pixel(void* doc, int32_t view, int32_t* rows) {
    if (view != 0 || rows == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onPlace(doc, [&](const WordHandle& handle, const StretchPlace& place) -> std::int32_t {
        // The view uses the number as a bound inside its buffer.
        if (!handle.surface || place.usedRows < 0 || place.usedRows > handle.surface->height()) {
            return MODULE_FAILED;
        }
        *rows = place.usedRows;
        return MODULE_OK;
    });
}

int32_t wtg_scroll_down(void* doc, int32_t view, int32_t rows, int32_t* scrolled) {
    return scroll(doc, view, rows, scrolled, &lectern_ipc_word_call_scroll_down_sync);
}

int32_t wtg_scroll_up(void* doc, int32_t view, int32_t rows, int32_t* scrolled) {
    return scroll(doc, view, rows, scrolled, &lectern_ipc_word_call_scroll_up_sync);
}

int32_t wtg_jump_to_character(void* doc, int32_t story, uint32_t position) {
    return onDocument(doc, [&](WordHandle& handle) {
        return callForStretch(handle, &lectern_ipc_word_call_jump_to_character_sync,
                              std::tuple(gint{story}, guint{position}));
    });
}

int32_t wtg_page_layout_size(void* doc, int32_t view, int32_t* width, int32_t* height) {
    if (view != 0 || width == nullptr || height == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        gint laidOutWidth = 0;
        gint rows = 0;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_layout_size_sync, std::tuple<>(), &laidOutWidth, &rows);
        if (result == MODULE_OK) {
            *width = laidOutWidth;
            *height = rows;
        }
        return result;
    });
}
