// SPDX-License-Identifier: Apache-2.0
// Finding text, and the places of hits on the surface.
#include "engine/layout/HitOptions.h"
#include "engine/office/word/WordDocumentPrivate.h"

#include <algorithm>
#include <tuple>

namespace lectern::engine {

int32_t WordDocument::setHighlightColor(uint8_t red, uint8_t green, uint8_t blue) {
    mPrivate->highlight = {red, green, blue};
    return MODULE_OK;
}

int32_t WordDocument::setFindOptions(int32_t flags) {
    mPrivate->findOptions = flags;
    return MODULE_OK;
}

int32_t WordDocument::find(const std::u16string& text, CharacterRange bounds,
                           std::vector<CharacterRange>& hits) {
    Private& d = *mPrivate;
    return guardedInOffice([&]() -> int32_t {
        if (!d.searchText) {
            d.searchText.emplace(d.prepared.body.string());
        }
        const bool wasMarked = !d.hits.ranges().empty();
        hits = d.searchText->find(text, bounds, [&](CharacterRange hit) {
            return isWantedHit(d.prepared.body.string(), text, hit, d.findOptions);
        });
        d.hits = PlacedRanges(hits);
        d.hitColour = d.highlight;
        d.latestHit.reset();
        d.setAhead(d.ahead);
        // The hits are found whether or not they can be marked; a failure leaves a line in the log.
        std::ignore = guardedInOffice([&]() -> int32_t {
            d.markHits(wasMarked);
            return MODULE_OK;
        });
        return MODULE_OK;
    });
}

void WordDocument::Private::markHits(bool wasMarked) {
    if (wasMarked) {
        repaint();
    } else if (surface.pixels != nullptr && isCurrent()) {
        mark(hits, 0, surface.height, hitColour);
    }
}

int32_t WordDocument::foundRegions(std::vector<FoundRegion>& regions) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        for (const size_t index : d.hits.inRows(d.text(), d.top, d.bottom())) {
            FoundRegion region{d.hits.ranges()[index].start, {}};
            for (const TextBox& box : d.hits.boxes(index)) {
                region.rectangles.push_back(d.onSurface(box));
            }
            regions.push_back(std::move(region));
        }
        const auto place = [](const FoundRegion& region) {
            return std::tuple(region.rectangles.front().y, region.rectangles.front().x);
        };
        std::stable_sort(regions.begin(), regions.end(),
                         [&](const FoundRegion& a, const FoundRegion& b) { return place(a) < place(b); });
        return MODULE_OK;
    });
}

int32_t WordDocument::stopFind() {
    Private& d = *mPrivate;
    return guardedInOffice([&]() -> int32_t {
        const bool wasMarked = !d.hits.ranges().empty();
        d.hits = PlacedRanges();
        d.setAhead(d.ahead);
        if (wasMarked) {
            d.repaint();
        }
        return MODULE_OK;
    });
}

PixelRect WordDocument::Private::onSurface(const TextBox& box) const {
    return {box.left, static_cast<int32_t>(box.top - top), box.right - box.left,
            static_cast<int32_t>(box.bottom - box.top)};
}

} // namespace lectern::engine
