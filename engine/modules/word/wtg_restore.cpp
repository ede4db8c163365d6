// SPDX-License-Identifier: Apache-2.0
// Telling another engine what the lost one was told.

#include "engine/modules/Arrays.h"
#include "engine/modules/word/WordHandle.h"

using namespace lectern::engine;
using lectern::GLibHolder;

std::int32_t WordHandle::giveSurface(std::int32_t width, std::int32_t height, gboolean& isPainted) {
    std::unique_ptr<SharedSurface> offered;
    const std::int32_t result =
        offerSurface(*this, width, height, offered, &lectern_ipc_word_call_set_surface_sync,
                     [&](GVariant* memory, GUnixFDList* files, gint* answer, GError** error) {
                         return lectern_ipc_word_call_set_surface_sync(
                             engine->word(), memory, width, height, G_DBUS_CALL_FLAGS_NONE, G_MAXINT, files,
                             answer, &isPainted, nullptr, nullptr, error);
                     });
    if (result == MODULE_OK) {
        surface = std::move(offered);
    }
    return result;
}

namespace {

// A call without outputs whose pixels are not passed on: the caller's are right.
template<class Method, class... Inputs>
std::int32_t tellQuietly(WordHandle& handle, Method method, Inputs... inputs) {
    gboolean ignored = FALSE;
    return callInterface(handle, handle.engine->word(), method, std::tuple<Inputs...>(inputs...), &ignored);
}

std::int32_t tellDpi(WordHandle& handle, std::int32_t dpi) {
    return dpi == 0 ? std::int32_t{MODULE_OK}
                    : tellQuietly(handle, &lectern_ipc_word_call_set_dpi_sync, gint{dpi});
}

} // namespace

std::int32_t WordHandle::restore() {
    std::unique_ptr<SharedSurface> before = std::move(surface);
    forgetStretch();
    const std::int32_t result =
        inTurn([&] { return restoreMarks(); }, [&] { return restorePlace(before.get()); });
    if (result != MODULE_OK) {
        surface = std::move(before);
    }
    return result;
}

std::int32_t WordHandle::restoreMarks() {
    const auto use = [&](const HighlightColour& colour) {
        return tellQuietly(*this, &lectern_ipc_word_call_set_highlight_color_sync, guchar{colour[0]},
                           guchar{colour[1]}, guchar{colour[2]});
    };
    gint compared = 0; // as after the open
    const auto compare = [&](gint options) {
        return std::exchange(compared, options) == options
                   ? std::int32_t{MODULE_OK}
                   : tellQuietly(*this, &lectern_ipc_word_call_set_find_options_sync, options);
    };
    const auto find = [&](const WordState::Search& search) {
        const GLibHolder<GVariant> wanted = unitsOf(search.text.data());
        GLibHolder<GVariant> hits;
        gboolean ignored = FALSE;
        return callInterface(*this, engine->word(), &lectern_ipc_word_call_find_sync,
                             std::tuple(wanted.get(), search.from, search.to), &ignored, out(hits));
    };
    std::int32_t result = MODULE_OK;
    if (state.search) {
        result = inTurn([&] { return use(state.search->colour); },
                        [&] { return compare(state.search->options); }, [&] { return find(*state.search); });
    }
    if (result == MODULE_OK) {
        result = compare(state.findOptions);
    }
    if (result == MODULE_OK && state.selection) {
        result = inTurn([&] { return use(state.selection->colour); },
                        [&] {
                            return tellQuietly(*this, &lectern_ipc_word_call_select_range_sync,
                                               state.selection->start, state.selection->end);
                        });
    }
    return result == MODULE_OK ? use(state.colour) : result;
}

// The engine lays the text out first as it was when the place was known. Then it gets the
// surface and the resolution that were set since, for which it keeps the place itself.
std::int32_t WordHandle::restorePlace(const SharedSurface* before) {
    gboolean isPainted = FALSE;
    std::int32_t result = MODULE_OK;
    if (const std::optional<WordState::Shown> shown = state.shown) {
        GLibHolder<GVariant> stretch;
        result = inTurn([&] { return giveSurface(shown->width, shown->height, isPainted); },
                        [&] { return tellDpi(*this, shown->dpi); },
                        [&] {
                            return callInterface(*this, engine->word(), &lectern_ipc_word_call_show_row_sync,
                                                 std::tuple(gint64{shown->row}), &isPainted, out(stretch));
                        });
    }
    if (result == MODULE_OK && (!state.shown || state.shown->dpi != state.dpi)) {
        result = tellDpi(*this, state.dpi);
    }
    const bool isOther = before != nullptr && (!surface || surface->width() != before->width() ||
                                               surface->height() != before->height());
    if (result == MODULE_OK && isOther) {
        isPainted = FALSE;
        result = giveSurface(before->width(), before->height(), isPainted);
    }
    if (result == MODULE_OK) {
        painted = isPainted != FALSE;
        borrowed = false;
    }
    return result;
}
