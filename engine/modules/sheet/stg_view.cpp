// SPDX-License-Identifier: Apache-2.0
// The sheets, their measurements and their painting.

#include "engine/modules/sheet/SheetHandle.h"

#include <utility>

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

// Largest thickness of a header strip in pixels; the view allocates buffers of
// that size.
constexpr std::int32_t MOST_THICKNESS = 16384;

std::int32_t setBuffer(void* doc, std::int32_t view, SheetArea area, std::uint32_t* pixels,
                       std::int32_t width, std::int32_t height) {
    if (view != 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) -> std::int32_t {
        BufferPair& pair = handle.buffers[static_cast<std::size_t>(area)];
        pair.pixels = nullptr; // the caller may already have freed them
        if (pixels == nullptr || width < 1 || height < 1) {
            return MODULE_BAD_ARGUMENT;
        }
        if (std::int64_t{width} * height > SharedSurface::MAXIMUM_PIXELS) {
            return MODULE_TOO_LARGE;
        }
        std::int32_t result = handle.engine->isAlive() ? MODULE_OK : MODULE_ENGINE_LOST;
        if (!pair.surface || pair.surface->width() != width || pair.surface->height() != height) {
            result = handle.giveSurface(area, width, height);
        }
        if (result == MODULE_OK) {
            pair.pixels = pixels;
        }
        return result;
    });
}

} // namespace

std::int32_t SheetHandle::giveSurface(SheetArea area, std::int32_t width, std::int32_t height) {
    std::unique_ptr<SharedSurface> offered;
    const std::int32_t result =
        offerSurface(*this, width, height, offered, &lectern_ipc_sheet_call_set_surface_sync,
                     [&](GVariant* memory, GUnixFDList* files, gint* answer, GError** error) {
                         return lectern_ipc_sheet_call_set_surface_sync(
                             engine->sheet(), static_cast<gint>(area), memory, width, height,
                             G_DBUS_CALL_FLAGS_NONE, G_MAXINT, files, answer, nullptr, nullptr, error);
                     });
    if (result == MODULE_OK) {
        buffers[static_cast<std::size_t>(area)].surface = std::move(offered);
    }
    return result;
}

int32_t stg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width, int32_t height) {
    return setBuffer(doc, view, SheetArea::Cells, pixels, width, height);
}

int32_t stg_set_row_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width,
                                     int32_t height) {
    return setBuffer(doc, view, SheetArea::RowHeaders, pixels, width, height);
}

int32_t stg_set_column_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width,
                                        int32_t height) {
    return setBuffer(doc, view, SheetArea::ColumnHeaders, pixels, width, height);
}

int32_t stg_set_dpi(void* doc, int32_t dpi) {
    if (dpi < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) -> std::int32_t {
        if (handle.dpi == dpi && handle.engine->isAlive()) {
            return MODULE_OK;
        }
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_sheet_call_set_dpi_sync, std::tuple(gint{dpi}));
        if (result == MODULE_OK) {
            handle.dpi = dpi;
            handle.measures.reset();
        }
        return result;
    });
}

int32_t stg_render_sheet(void* doc, int32_t sheet, int32_t x, int32_t y) {
    return onWorkbook(doc, [&](SheetHandle& handle) {
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_render_sync,
                                               std::tuple(gint{sheet}, gint{x}, gint{y}));
        for (const BufferPair& pair : handle.buffers) {
            if (result == MODULE_OK && pair.pixels != nullptr) {
                pair.surface->copyTo(pair.pixels);
            }
        }
        return result;
    });
}

int32_t stg_get_sheet_count(void* doc, int32_t* count) {
    int32_t sheets = 0;
    const int32_t result = getFromWorkbook(doc, &sheets, &lectern_ipc_sheet_call_sheet_count_sync);
    const int32_t checked =
        count == nullptr ? MODULE_BAD_ARGUMENT : checkedCount(result, sheets, 0, MOST_PARTS);
    if (checked == MODULE_OK) {
        *count = sheets;
    }
    return checked;
}

int32_t stg_get_column_count(void* doc, int32_t sheet, int32_t* count) {
    if (count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onMeasures(doc, sheet, [&](SheetHandle&, const SheetMeasures& measures) {
        *count = measures.columns;
        return MODULE_OK;
    });
}

int32_t stg_get_sheet_dimensions(void* doc, int32_t sheet, int32_t* width, int32_t* height) {
    if (width == nullptr || height == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onMeasures(doc, sheet, [&](SheetHandle&, const SheetMeasures& measures) {
        *width = measures.width;
        *height = measures.height;
        return MODULE_OK;
    });
}

int32_t stg_get_sheet_title(void* doc, int32_t sheet, uint16_t* text, int32_t capacity, int32_t* length) {
    if (!isTextBuffer(text, capacity, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) {
        GLibHolder<GVariant> title;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_sheet_call_title_sync, std::tuple(gint{sheet}), out(title));
        if (result == MODULE_OK) {
            deliverText(elementsOf<std::uint16_t>(title.get()), text, capacity, length);
        }
        return result;
    });
}

int32_t stg_cell_bounds(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t* left, int32_t* top,
                        int32_t* width, int32_t* height) {
    if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    const auto deliver = [&](const module_rect& bounds, std::int32_t most) -> std::int32_t {
        if (bounds.width < 0 || bounds.height < 0 || bounds.width > most || bounds.height > most) {
            return MODULE_FAILED;
        }
        *left = bounds.x;
        *top = bounds.y;
        *width = bounds.width;
        *height = bounds.height;
        return MODULE_OK;
    };
    if (x == -1 && y == -1) {
        return onMeasures(doc, sheet, [&](SheetHandle&, const SheetMeasures& measures) {
            return deliver({0, 0, measures.cornerWidth, measures.cornerHeight}, MOST_THICKNESS);
        });
    }
    return onWorkbook(doc, [&](SheetHandle& handle) {
        module_rect bounds{};
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_cell_bounds_sync,
                                               std::tuple(gint{sheet}, gint{x}, gint{y}), &bounds.x,
                                               &bounds.y, &bounds.width, &bounds.height);
        return result == MODULE_OK ? deliver(bounds, G_MAXINT32) : result;
    });
}

int32_t stg_get_cell_reference_at_location(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t* column,
                                           int32_t* row) {
    if (column == nullptr || row == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) {
        gint across = 0;
        gint down = 0;
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_cell_at_sync,
                                               std::tuple(gint{sheet}, gint{x}, gint{y}), &across, &down);
        if (result == MODULE_OK) {
            *column = across;
            *row = down;
        }
        return result;
    });
}
