// SPDX-License-Identifier: Apache-2.0
// Selecting text, and copying the selection.

#include "engine/modules/Arrays.h"
#include "engine/modules/Utf16.h"
#include "engine/modules/word/WordHandle.h"
#include "modules/WordToGoModule.h"

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

// Makes a call that selects, and keeps what is selected then.
template<class Method, class... Inputs>
std::int32_t selectBy(void* doc, Method method, Inputs... inputs) {
    return onDocument(doc, [&](WordHandle& handle) {
        WordState::Selection selected{0, 0, handle.state.colour};
        std::int32_t result = callEngine(handle, method, std::tuple<Inputs...>(inputs...));
        if (result == MODULE_OK) {
            result = callEngine(handle, &lectern_ipc_word_call_selection_sync, std::tuple<>(),
                                &selected.start, &selected.end);
        }
        if (result == MODULE_OK) {
            handle.state.selection = selected;
        }
        return result;
    });
}

} // namespace

int32_t wtg_clear_selection(void* doc) {
    return onDocument(doc, [&](WordHandle& handle) {
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_clear_selection_sync, std::tuple<>());
        if (result == MODULE_OK) {
            handle.state.selection.reset();
        }
        return result;
    });
}

int32_t wtg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first, int32_t* length) {
    if (first < 0 || !isTextBuffer(text, capacity, length)) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        GLibHolder<GVariant> whole;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_word_call_copy_selection_sync, std::tuple<>(), out(whole));
        if (result == MODULE_OK) {
            deliverTextFrom(elementsOf<std::uint16_t>(whole.get()), first, text, capacity, length);
        }
        return result;
    });
}

int32_t wtg_scroll_to_character_range(void* doc, int32_t view, uint32_t start, uint32_t end) {
    if (view != 0 || start > end) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        handle.forgetStretch();
        const std::int32_t result = callEngine(handle, &lectern_ipc_word_call_scroll_to_range_sync,
                                               std::tuple(guint{start}, guint{end}));
        return result != MODULE_OK
                   ? result
                   : callForStretch(handle, &lectern_ipc_word_call_stretch_place_sync, std::tuple<>());
    });
}

int32_t wtg_select_all(void* doc) {
    return selectBy(doc, &lectern_ipc_word_call_select_all_sync);
}

int32_t wtg_select_area(void* doc, int32_t view, int32_t left, int32_t top, int32_t right, int32_t bottom) {
    return view != 0 ? MODULE_BAD_ARGUMENT
                     : selectBy(doc, &lectern_ipc_word_call_select_area_sync, gint{left}, gint{top},
                                gint{right}, gint{bottom});
}

int32_t wtg_select_line(void* doc, int32_t view, int32_t x, int32_t y) {
    return view != 0 ? MODULE_BAD_ARGUMENT
                     : selectBy(doc, &lectern_ipc_word_call_select_line_sync, gint{x}, gint{y});
}

int32_t wtg_select_word(void* doc, int32_t view, int32_t x, int32_t y) {
    return view != 0 ? MODULE_BAD_ARGUMENT
                     : selectBy(doc, &lectern_ipc_word_call_select_word_sync, gint{x}, gint{y});
}

int32_t wtg_move_selection_end(void* doc, int32_t end, int32_t x, int32_t y) {
    return selectBy(doc, &lectern_ipc_word_call_move_selection_end_sync, gint{end}, gint{x}, gint{y});
}
