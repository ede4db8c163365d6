// SPDX-License-Identifier: Apache-2.0
// Telling another engine what the lost one was told.

#include "engine/modules/Arrays.h"
#include "engine/modules/sheet/SheetHandle.h"

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

std::int32_t useColour(SheetHandle& handle, const HighlightColour& colour) {
    return callEngine(handle, &lectern_ipc_sheet_call_set_highlight_color_sync,
                      std::tuple(guchar{colour[0]}, guchar{colour[1]}, guchar{colour[2]}));
}

std::int32_t useOptions(SheetHandle& handle, std::int32_t flags) {
    return callEngine(handle, &lectern_ipc_sheet_call_set_find_options_sync, std::tuple(gint{flags}));
}

std::int32_t find(SheetHandle& handle, const SheetState::Search& search) {
    const GLibHolder<GVariant> wanted = unitsOf(search.text.data());
    return inTurn([&] { return useColour(handle, search.colour); },
                  [&] { return useOptions(handle, search.options); },
                  [&] {
                      return callEngine(handle, &lectern_ipc_sheet_call_find_sync,
                                        std::tuple(gint{search.sheet}, wanted.get()));
                  });
}

std::int32_t select(SheetHandle& handle, const SheetState::Selection& selection) {
    const GLibHolder<GVariant> numbers = packed(selection.numbers);
    return inTurn([&] { return useColour(handle, selection.colour); },
                  [&] {
                      return callEngine(handle, &lectern_ipc_sheet_call_restore_selection_sync,
                                        std::tuple(numbers.get()));
                  });
}

std::int32_t change(SheetHandle& handle, std::int32_t sheet, const std::vector<std::int32_t>& changes) {
    const GLibHolder<GVariant> numbers = packed(changes);
    return callEngine(handle, &lectern_ipc_sheet_call_restore_changes_sync,
                      std::tuple(gint{sheet}, numbers.get()));
}

} // namespace

// The resolution comes first: the heights that a sort leaves depend on it.
std::int32_t SheetHandle::restore() {
    measures.reset();
    return inTurn(
        [&] {
            return dpi == 0 ? std::int32_t{MODULE_OK}
                            : callEngine(*this, &lectern_ipc_sheet_call_set_dpi_sync, std::tuple(gint{dpi}));
        },
        [&] { return restoreChanges(); }, [&] { return restoreMarks(); }, [&] { return restoreSurfaces(); });
}

std::int32_t SheetHandle::restoreChanges() {
    for (const auto& [sheet, changes] : state.changes) {
        if (const std::int32_t result = change(*this, sheet, changes); result != MODULE_OK) {
            return result;
        }
    }
    return MODULE_OK;
}

std::int32_t SheetHandle::restoreMarks() {
    return inTurn([&] { return state.search ? find(*this, *state.search) : std::int32_t{MODULE_OK}; },
                  [&] { return state.selection ? select(*this, *state.selection) : std::int32_t{MODULE_OK}; },
                  [&] { return useColour(*this, state.colour); },
                  [&] { return useOptions(*this, state.findOptions); });
}

std::int32_t SheetHandle::restoreSurfaces() {
    for (std::size_t area = 0; area < buffers.size(); area++) {
        const std::unique_ptr<SharedSurface>& surface = buffers[area].surface;
        if (!surface) {
            continue;
        }
        const std::int32_t result =
            giveSurface(static_cast<SheetArea>(area), surface->width(), surface->height());
        if (result != MODULE_OK) {
            return result;
        }
    }
    return MODULE_OK;
}
