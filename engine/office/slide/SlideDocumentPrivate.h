// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/PicturePlaces.h"
#include "engine/office/OfficeGuard.h"
#include "engine/office/slide/SlideDeck.h"
#include "engine/office/slide/SlideDocument.h"

#include <chrono>
#include <map>
#include <optional>
#include <vector>

namespace lectern::engine {

// The hits of a search on one slide.
struct FoundOnSlide {
    std::vector<std::vector<DrawnBox>> boxes; // of each hit, by place
    std::vector<int32_t> noteOffsets;
};

struct SlideDocument::Private {
    Private(const Office::Private& office, const std::string& path, LoadedModel loaded)
        : deck(office, path, std::move(loaded)), texts(static_cast<size_t>(deck.count())) {}

    // Runs work on a slide that there is.
    template<class Work>
    int32_t onSlide(int32_t slide, Work work) noexcept {
        return guardedInOffice([&]() -> int32_t {
            if (!deck.has(slide))
                return MODULE_BAD_ARGUMENT;
            work();
            return MODULE_OK;
        });
    }

    const DrawnText& drawnText(int32_t slide);
    FoundOnSlide search(int32_t slide, const std::u16string& wanted);
    // The rectangles of a hit on the surface; what lies beyond the slide is left out.
    std::vector<PixelRect> onSurface(int32_t slide, const std::vector<DrawnBox>& boxes) const;
    // The surface that a picture of the memory is.
    Surface pictureAt(int32_t place) const;
    // Has the slide painted; the place where it is.
    int32_t paint(int32_t slide);
    // The slide whose paint it pays to prepare while this one is looked at.
    std::optional<int32_t> after(std::optional<int32_t> before, int32_t slide) const;
    // Brings a bit of the memory that the next paint will need into this process
    // and its caches, which saves that paint a tenth to a third of its time.
    // False when there is no more. `shown` is the place that is being looked at.
    bool warmMemory(int32_t shown);
    // Marks the hits on a copy of the picture at a place; the copy's place.
    int32_t markHits(int32_t slide, const FoundOnSlide& hits, int32_t place);

    SlideDeck deck;
    Surface surface; // the first picture
    PicturePlaces places{1};
    std::optional<int32_t> rendered;                 // the slide that was, on this surface
    std::chrono::steady_clock::duration paintTime{}; // of the slide painted last
    int64_t warmed = 0;                              // pixels of the next picture's memory
    std::optional<int32_t> likelyNext;               // the slide to be asked for next, perhaps none

    std::vector<std::optional<DrawnText>> texts; // of slides that were searched
    Colour highlight{128, 192, 255};             // for finds to come
    Colour hitColour{};
    std::map<int32_t, FoundOnSlide> found; // by slide
};

} // namespace lectern::engine
