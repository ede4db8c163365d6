// SPDX-License-Identifier: Apache-2.0
// Searching slides and notes.
#include "engine/layout/HitOptions.h"
#include "engine/layout/SearchText.h"
#include "engine/layout/Tint.h"
#include "engine/office/slide/SlideDocumentPrivate.h"
#include "engine/office/slide/SlideTexts.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <tuple>

namespace lectern::engine {

namespace {

using Clock = std::chrono::steady_clock;

// A search stops after this time and returns the hits so far. It is well below
// the time limit of a call.
constexpr std::chrono::seconds PATIENCE(5);

// Notes separate paragraphs by line feeds, a search by PARAGRAPH_SEPARATOR.
std::u16string searchable(std::u16string note) {
    std::replace(note.begin(), note.end(), u'\n', PARAGRAPH_SEPARATOR);
    return note;
}

std::vector<CharacterRange> hitsIn(std::u16string_view text, std::u16string_view wanted, int32_t options) {
    return SearchText(text).find(wanted, {0, std::numeric_limits<uint32_t>::max()},
                                 [&](CharacterRange hit) { return isWantedHit(text, wanted, hit, options); });
}

bool lies(const DrawnBox& box, const css::awt::Size& slide) {
    return box.right > 0 && box.bottom > 0 && box.left < slide.Width && box.top < slide.Height;
}

} // namespace

const DrawnText& SlideDocument::Private::drawnText(int32_t slide) {
    std::optional<DrawnText>& text = texts[static_cast<size_t>(slide)];
    if (!text) {
        text = deck.drawnText(slide);
    }
    return *text;
}

FoundOnSlide SlideDocument::Private::search(int32_t slide, const std::u16string& wanted) {
    FoundOnSlide hits;
    const DrawnText& text = drawnText(slide);
    const css::awt::Size size = deck.size(slide);
    for (const CharacterRange& hit : hitsIn(text.text, wanted, findOptions)) {
        std::vector<DrawnBox> boxes = text.boxes(hit);
        std::erase_if(boxes, [&](const DrawnBox& box) { return !lies(box, size); });
        if (!boxes.empty()) {
            hits.boxes.push_back(std::move(boxes));
        }
    }
    std::stable_sort(hits.boxes.begin(), hits.boxes.end(), [](const auto& a, const auto& b) {
        return std::tie(a.front().top, a.front().left) < std::tie(b.front().top, b.front().left);
    });
    for (const CharacterRange& hit : hitsIn(searchable(slideNote(deck.slide(slide))), wanted, findOptions)) {
        hits.noteOffsets.push_back(static_cast<int32_t>(hit.start));
    }
    return hits;
}

std::vector<PixelRect> SlideDocument::Private::onSurface(int32_t slide,
                                                         const std::vector<DrawnBox>& boxes) const {
    const css::awt::Size size = deck.size(slide);
    const double across = static_cast<double>(surface.width) / size.Width;
    const double down = static_cast<double>(surface.height) / size.Height;
    // First pixel and number of the pixels that an extent touches; at least one.
    const auto pixels = [](double from, double to, int32_t most) {
        const auto first = static_cast<int32_t>(std::clamp<double>(std::floor(from), 0, most - 1));
        const auto last = static_cast<int32_t>(std::clamp<double>(std::ceil(to), first + 1, most));
        return std::pair(first, last - first);
    };
    std::vector<PixelRect> rectangles;
    for (const DrawnBox& box : boxes) {
        const auto [x, width] = pixels(box.left * across, box.right * across, surface.width);
        const auto [y, height] = pixels(box.top * down, box.bottom * down, surface.height);
        rectangles.push_back({x, y, width, height});
    }
    return rectangles;
}

int32_t SlideDocument::Private::markHits(int32_t slide, const FoundOnSlide& hits, int32_t place) {
    const int32_t marked = places.take(); // equals `place` when there is only one
    const Surface picture = pictureAt(marked);
    if (marked != place) {
        std::copy(pictureAt(place).row(0), pictureAt(place).row(surface.height), picture.pixels);
    }
    for (const auto& boxes : hits.boxes) {
        for (const PixelRect& rect : onSurface(slide, boxes)) {
            tint(picture, rect.x, rect.y, int64_t{rect.x} + rect.width, int64_t{rect.y} + rect.height,
                 hitColour);
        }
    }
    return marked;
}

int32_t SlideDocument::setHighlightColor(const Colour& colour) {
    mPrivate->highlight = colour;
    return MODULE_OK;
}

int32_t SlideDocument::setFindOptions(int32_t flags) {
    mPrivate->findOptions = flags;
    return MODULE_OK;
}

int32_t SlideDocument::find(const std::u16string& text, int32_t first, int32_t last,
                            std::vector<SlideHits>& slides) {
    slides.clear();
    if (first < 0 || first > last || last >= mPrivate->deck.count()) {
        return MODULE_BAD_ARGUMENT;
    }
    return guardedInOffice([&]() -> int32_t {
        mPrivate->found.clear();
        mPrivate->hitColour = mPrivate->highlight;
        const Clock::time_point end = Clock::now() + PATIENCE;
        for (int32_t slide = first; slide <= last && !text.empty() && Clock::now() < end; ++slide) {
            FoundOnSlide hits = mPrivate->search(slide, text);
            if (hits.boxes.empty() && hits.noteOffsets.empty()) {
                continue;
            }
            slides.push_back({slide, static_cast<int32_t>(hits.boxes.size()),
                              static_cast<int32_t>(hits.noteOffsets.size())});
            mPrivate->found.emplace(slide, std::move(hits));
        }
        return MODULE_OK;
    });
}

int32_t SlideDocument::foundRegions(std::vector<std::vector<PixelRect>>& regions) {
    regions.clear();
    return guardedInOffice([&]() -> int32_t {
        const auto hits =
            mPrivate->rendered ? mPrivate->found.find(*mPrivate->rendered) : mPrivate->found.end();
        if (hits == mPrivate->found.end()) {
            return MODULE_OK;
        }
        for (const auto& boxes : hits->second.boxes) {
            regions.push_back(mPrivate->onSurface(*mPrivate->rendered, boxes));
        }
        return MODULE_OK;
    });
}

int32_t SlideDocument::foundNoteOffsets(int32_t slide, std::vector<int32_t>& offsets) {
    return mPrivate->onSlide(slide, [&] {
        const auto hits = mPrivate->found.find(slide);
        offsets = hits == mPrivate->found.end() ? std::vector<int32_t>() : hits->second.noteOffsets;
    });
}

int32_t SlideDocument::stopFind() {
    mPrivate->found.clear();
    return MODULE_OK;
}

} // namespace lectern::engine
