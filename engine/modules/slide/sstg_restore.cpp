// SPDX-License-Identifier: Apache-2.0
// Telling another engine what the lost one was told.

#include "engine/modules/Arrays.h"
#include "engine/modules/slide/SlideHandle.h"

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

std::int32_t useColour(SlideHandle& handle, const HighlightColour& colour) {
    return callEngine(handle, &lectern_ipc_slide_call_set_highlight_color_sync,
                      std::tuple(guchar{colour[0]}, guchar{colour[1]}, guchar{colour[2]}));
}

std::int32_t useOptions(SlideHandle& handle, std::int32_t options) {
    return callEngine(handle, &lectern_ipc_slide_call_set_find_options_sync, std::tuple(gint{options}));
}

std::int32_t find(SlideHandle& handle, const SlideState::Search& search) {
    const GLibHolder<GVariant> wanted = unitsOf(search.text.data());
    GLibHolder<GVariant> found;
    return inTurn(
        [&] { return useColour(handle, search.colour); }, [&] { return useOptions(handle, search.options); },
        [&] {
            return callEngine(handle, &lectern_ipc_slide_call_find_sync,
                              std::tuple(wanted.get(), gint{search.first}, gint{search.last}), out(found));
        });
}

std::int32_t render(SlideHandle& handle, std::int32_t slide) {
    gint picture = 0;
    return callEngine(handle, &lectern_ipc_slide_call_render_sync, std::tuple(gint{slide}), &picture);
}

} // namespace

std::int32_t SlideHandle::restore() {
    return inTurn([&] { return state.search ? find(*this, *state.search) : std::int32_t{MODULE_OK}; },
                  [&] { return useColour(*this, state.colour); },
                  [&] { return useOptions(*this, state.options); },
                  [&] {
                      return surface ? giveSurface(surface->width(), surface->height() / pictures)
                                     : std::int32_t{MODULE_OK};
                  },
                  [&] { return state.rendered ? render(*this, *state.rendered) : std::int32_t{MODULE_OK}; });
}
