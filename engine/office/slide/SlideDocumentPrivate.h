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
    std::vector<std::vector<DrawnBox>> boxes; // of each hit, from top to bottom
    std::vector<int32_t> noteOffsets;
};

struct SlideDocument::Private {
    Private(const Office::Private& office, const std::string& path, LoadedModel loaded)
        : deck(office, path, std::move(loaded)), texts(static_cast<size_t>(deck.count())) {}

    // Runs work on a slide if its number is valid.
    template<class Work>
    int32_t onSlide(int32_t slide, Work work) noexcept {
        return guardedInOffice([&]() -> int32_t {
            if (!deck.has(slide)) {
                return MODULE_BAD_ARGUMENT;
            }
            work();
            return MODULE_OK;
        });
    }

    const DrawnText& drawnText(int32_t slide);
    FoundOnSlide search(int32_t slide, const std::u16string& wanted);
    // The rectangles of a hit on the surface, without the parts beyond the slide.
    std::vector<PixelRect> onSurface(int32_t slide, const std::vector<DrawnBox>& boxes) const;
    // The surface of one of the pictures in the memory.
    Surface pictureAt(int32_t place) const;
    // Paints the slide unless a picture of it is kept; returns its place.
    int32_t paint(int32_t slide);
    // The slide to prepare while `slide` is shown; nothing when preparing does
    // not pay. `before` is the slide that was shown earlier.
    std::optional<int32_t> after(std::optional<int32_t> before, int32_t slide) const;
    // Touches a part of the memory of the next picture, so that it is mapped and in
    // the processor's caches; that saves the paint a tenth to a third of its time.
    // Returns false when all has been touched. `shown` is the place on display.
    bool warmMemory(int32_t shown);
    // Marks the hits on a copy of the picture at a place; returns the copy's place.
    int32_t markHits(int32_t slide, const FoundOnSlide& hits, int32_t place);

    SlideDeck deck;
    Surface surface; // the first picture
    PicturePlaces places{1};
    std::optional<int32_t> rendered;                 // the slide rendered last on this surface
    std::chrono::steady_clock::duration paintTime{}; // of the slide painted last
    int64_t warmed = 0;                              // number of pixels that warmMemory has touched
    std::optional<int32_t> likelyNext;               // the slide that is probably rendered next

    std::vector<std::optional<DrawnText>> texts; // of the slides searched so far
    Colour highlight{128, 192, 255};             // for later finds
    Colour hitColour{};
    int32_t findOptions = 0;               // flags for later finds
    std::map<int32_t, FoundOnSlide> found; // by slide
};

} // namespace lectern::engine
