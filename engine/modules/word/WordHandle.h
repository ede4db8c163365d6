// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/SharedSurface.h"
#include "engine/modules/DocumentHandle.h"
#include "engine/modules/EngineCalls.h"
#include "engine/protocol/Vocabulary.h"
#include "modules/TouchWordFunctions.h"
#include "modules/WordToGoModule.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace lectern::engine {

// Hits on the stretch. Moving it keeps the addresses of its elements.
struct Regions {
    std::vector<module_rect> rectangles;
    std::vector<wtg_find_region> regions;
};
// Converts what FoundRegions returns; empty when the counts do not match the
// number of rectangles.
std::optional<Regions> regionsOf(GVariant* positions, GVariant* counts, GVariant* rectangles);

// What an engine was told of a text, as far as later answers depend on it, besides its
// surface.
struct WordState {
    // The layout that the stretch's place was last known in.
    struct Shown {
        std::int32_t width = 0;
        std::int32_t height = 0;
        std::int32_t dpi = 0; // 0: the engine's own
        std::int64_t row = 0;
    };
    struct Search {
        std::vector<std::uint16_t> text; // zero-terminated
        guint from = 0;
        guint to = 0;
        HighlightColour colour{};
        gint options = 0;
    };
    struct Selection {
        guint start = 0;
        guint end = 0;
        HighlightColour colour{};
    };

    std::int32_t dpi = 0; // 0: the engine's own
    std::optional<Shown> shown;
    HighlightColour colour = DEFAULT_HIGHLIGHT; // of later hits and selections
    gint findOptions = 0;                       // of later finds
    std::optional<Search> search;
    std::optional<Selection> selection;
};

// Records with a text each. Moving it keeps the addresses of its elements.
template<class Record>
struct KeptTexts {
    std::vector<std::uint16_t> units; // of all texts, each zero-terminated
    std::vector<Record> records;
};

// The object behind a wtg_ document handle.
struct WordHandle : DocumentHandle {
    WordState state;
    std::unique_ptr<SharedSurface> surface; // painted by the engine; null until a buffer is set
    bool painted = false;                   // whether the surface has been painted at least once
    bool borrowed = false;                  // whether it shows a secondary document
    std::optional<StretchPlace> place;      // as long as it is the engine's
    std::optional<Regions> nextRegions;     // the hits there, until they are asked for
    std::uint32_t* pixels = nullptr; // the caller's buffer of the surface's size; null after a refused one

    // Arrays returned to the caller; each is valid until the next call of its function.
    std::vector<wtg_find_result> results;
    Regions regions;
    wtg_click_info click{};
    std::vector<std::uint16_t> clickAddress;
    std::vector<module_rect> clickRegions;
    std::vector<module_rect> selectionRegions;
    KeptTexts<wtg_text_line> lines;
    KeptTexts<wtg_outline_entry> headings;

    void forgetStretch() {
        place.reset();
        nextRegions.reset();
    }
    std::vector<SharedSurface*> surfaces() override {
        return surface ? std::vector{surface.get()} : std::vector<SharedSurface*>();
    }
    void refreshPixels() const {
        if (painted && pixels != nullptr) {
            surface->copyTo(pixels);
        }
    }

    // Gives the engine a new surface, which replaces the handle's if that succeeds.
    // `isPainted` tells whether the engine has painted it.
    std::int32_t giveSurface(std::int32_t width, std::int32_t height, gboolean& isPainted);

protected:
    std::int32_t restore() override;

private:
    std::int32_t restoreMarks();
    std::int32_t restorePlace(const SharedSurface* before);
};

// Runs one module function on a document; the mutex keeps others out.
template<class Operation>
std::int32_t onDocument(void* doc, Operation operation, WhenLost whenLost = WhenLost::BringBack) {
    return onHandle<WordHandle>(doc, operation, whenLost);
}

// Makes one typed call to the Word interface; `method` is the generated
// function. The outputs are written whenever the engine answered. Updates the
// caller's buffer.
template<class Method, class... Inputs, class... Outputs>
std::int32_t callEngine(WordHandle& handle, Method method, std::tuple<Inputs...> inputs,
                        Outputs&&... outputs) {
    gboolean painted = FALSE;
    const std::int32_t result =
        callInterface(handle, handle.engine->word(), method, inputs, &painted, outputs...);
    if (painted != FALSE && handle.surface) {
        handle.painted = true;
        handle.refreshPixels();
    }
    return result;
}

// Keeps what an answer tells of the stretch.
void keepStretch(WordHandle& handle, GVariant* stretch);

// For functions without outputs.
template<class Method, class... Inputs>
std::int32_t tell(void* doc, Method method, Inputs... inputs) {
    return onDocument(doc, [&](WordHandle& handle) {
        return callEngine(handle, method, std::tuple<Inputs...>(inputs...));
    });
}

// One call that answers with the stretch, after outputs of its own; `result` is
// that of the call. The stretch is known until the next call that changes it.
template<class Method, class... Inputs, class... Outputs>
std::int32_t callForStretch(WordHandle& handle, Method method, std::tuple<Inputs...> inputs,
                            Outputs&&... outputs) {
    GLibHolder<GVariant> stretch;
    handle.forgetStretch();
    const std::int32_t result = callEngine(handle, method, inputs, outputs..., out(stretch));
    if (result == MODULE_OK) {
        keepStretch(handle, stretch.get());
    }
    return result;
}

// For functions whose only argument besides the document is an output for one
// number; Wire is the number's type in the protocol.
template<class Wire, class Method, class Number>
std::int32_t getNumber(void* doc, Method method, Number* number) {
    if (number == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onDocument(doc, [&](WordHandle& handle) {
        Wire value = 0;
        const std::int32_t result = callEngine(handle, method, std::tuple<>(), &value);
        if (result == MODULE_OK) {
            *number = static_cast<Number>(value);
        }
        return result;
    });
}

} // namespace lectern::engine
