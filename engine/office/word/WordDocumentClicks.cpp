// SPDX-License-Identifier: Apache-2.0
// The object at a point, and secondary documents.
#include "engine/office/word/SecondaryDocument.h"
#include "engine/office/word/WordDocumentPrivate.h"

#include <algorithm>
#include <limits>

namespace lectern::engine {

namespace {

constexpr int32_t SIDE_TEXT_TOP = 50; // rows of the surface that a pop-up does not show

// Largest distance in pixels between a finger and a note's mark, horizontally
// and vertically.
constexpr int32_t REACH_ACROSS = 12;
constexpr int32_t REACH_DOWN = 6;

// Distance of a point from a box in percent of the largest allowed distance; 0
// inside the box.
int64_t missBy(const TextBox& box, int32_t x, int64_t row) {
    const int64_t across = std::max<int64_t>({box.left - x, x - (box.right - 1), 0});
    const int64_t down = std::max<int64_t>({box.top - row, row - (box.bottom - 1), 0});
    return std::max(across * 100 / REACH_ACROSS, down * 100 / REACH_DOWN);
}

int64_t missBy(const std::vector<TextBox>& boxes, int32_t x, int64_t row) {
    int64_t least = std::numeric_limits<int64_t>::max();
    for (const TextBox& box : boxes) {
        least = std::min(least, missBy(box, x, row));
    }
    return least;
}

// Finds the target at a point of the text.
class Pointer {
public:
    Pointer(const LaidOutText& text, References& references, const LinkTargets& targets, int32_t x,
            int64_t row)
        : mText(text), mReferences(references), mTargets(targets), mX(x), mRow(row) {}

    // Marks of notes are small, so a near miss counts when nothing else is at the point.
    ClickTarget target() {
        if (const auto reference = nearestReference(0)) {
            return *reference;
        }
        if (const auto link = linkAtPoint()) {
            return *link;
        }
        return nearestReference(100).value_or(ClickTarget());
    }

private:
    // The nearest reference within `most` percent of the allowed distance.
    std::optional<ClickTarget> nearestReference(int64_t most) {
        PlacedRanges& places = mReferences.places();
        std::optional<ClickTarget> nearest;
        const int64_t above = std::max<int64_t>(mRow - REACH_DOWN, 0);
        for (const size_t index : places.inRows(mText, above, mRow + REACH_DOWN + 1)) {
            const ClickType type = mReferences.texts()[index].type;
            const int64_t miss = missBy(places.boxes(index), mX, mRow);
            // A note's mark takes precedence over a comment that includes it.
            if (miss > most || (miss == most && nearest && type == ClickType::Comment)) {
                continue;
            }
            most = miss;
            nearest = {type, {}, static_cast<uint32_t>(index)};
        }
        return nearest;
    }

    std::optional<ClickTarget> linkAtPoint() {
        const auto at = mText.positions.pointedAt(mText.map, mX, mRow);
        if (const auto url = property<OUString>(at.object, "HyperLinkURL"); !url.isEmpty()) {
            return follow(url);
        }
        const BodyParagraph& paragraph = mText.positions.body().paragraphAt(at.position);
        std::vector<CharacterRange> near;
        std::vector<OUString> addresses;
        for (const Link& link : linksIn(paragraph, mText.positions)) {
            if (link.range.start > at.position || link.range.end < at.position) {
                continue;
            }
            near.push_back(link.range);
            addresses.push_back(link.address);
        }
        PlacedRanges places(std::move(near));
        places.placeAll(mText);
        for (size_t index = 0; index < addresses.size(); ++index) {
            if (missBy(places.boxes(index), mX, mRow) == 0) {
                return follow(addresses[index]);
            }
        }
        const auto entry = mTargets.ofContentsEntry(paragraph);
        return entry ? std::optional(ClickTarget{ClickType::InternalLink, {}, *entry}) : std::nullopt;
    }

    std::optional<ClickTarget> follow(const OUString& address) const {
        if (!address.startsWith("#")) {
            return ClickTarget{ClickType::Hyperlink, toText(address), 0};
        }
        const auto position = mTargets.find(address.copy(1));
        return position ? std::optional(ClickTarget{ClickType::InternalLink, {}, *position}) : std::nullopt;
    }

    const LaidOutText& mText;
    References& mReferences;
    const LinkTargets& mTargets;
    int32_t mX;
    int64_t mRow;
};

} // namespace

bool WordDocument::Private::isOnText(int32_t x, int32_t y) const {
    return x >= 0 && x < surface.width && y >= 0 && y < usedRows();
}

References& WordDocument::Private::references() {
    if (!sideTexts) {
        sideTexts.emplace(document.model, positions);
    }
    return *sideTexts;
}

int32_t WordDocument::clickInfo(int32_t x, int32_t y, ClickTarget& target) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        if (d.isOnText(x, y)) {
            target =
                Pointer(d.text(), d.references(), LinkTargets(d.document.model, d.positions), x, d.top + y)
                    .target();
        }
        return MODULE_OK;
    });
}

int32_t WordDocument::clickRegions(std::vector<PixelRect>& regions) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        const CharacterRange near = d.positions.around(d.map, d.top, d.bottom());
        std::vector<CharacterRange> links;
        for (const BodyParagraph& paragraph : d.prepared.body.paragraphs()) {
            if (paragraph.start + paragraph.length < near.start || paragraph.start > near.end) {
                continue;
            }
            for (const Link& link : linksIn(paragraph, d.positions)) {
                links.push_back(link.range);
            }
        }
        PlacedRanges placed(std::move(links));
        for (PlacedRanges* ranges : {&placed, &d.references().places()}) {
            for (const size_t index : ranges->inRows(d.text(), d.top, d.bottom())) {
                for (const TextBox& box : ranges->boxes(index)) {
                    regions.push_back(d.onSurface(box));
                }
            }
        }
        return MODULE_OK;
    });
}

int32_t WordDocument::openSecondary(ClickType type, uint32_t number, int32_t height) {
    Private& d = *mPrivate;
    return guardedInOffice([&]() -> int32_t {
        const auto& texts = d.references().texts();
        if (number >= texts.size() || texts[number].type != type || height < 1 ||
            d.surface.pixels == nullptr) {
            return MODULE_BAD_ARGUMENT;
        }
        d.layOutTo(d.references().places().ranges()[number].end);
        const Surface& whole = d.surface;
        const int32_t shown = std::clamp(whole.height - SIDE_TEXT_TOP, 0, height);
        if (shown > 0) {
            const Surface part{whole.row(SIDE_TEXT_TOP), whole.width, shown};
            const int32_t result = paintSideText(d.office, d.document, texts[number], part, d.dpi);
            if (result != MODULE_OK) {
                return result;
            }
        }
        fill(whole, 0, 0, whole.width, SIDE_TEXT_TOP, WHITE);
        fill(whole, 0, SIDE_TEXT_TOP + shown, whole.width, whole.height, WHITE);
        d.painted = true;
        return MODULE_OK;
    });
}

int32_t WordDocument::smartZoom(int32_t x, int32_t y, PixelRect& area) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        if (!d.isOnText(x, y)) {
            return MODULE_NOTHING_THERE;
        }
        const BodyParagraph& paragraph =
            d.prepared.body.paragraphAt(d.positions.nearest(d.map, x, d.top + y));
        PlacedRanges whole({{paragraph.start, paragraph.start + paragraph.length}});
        whole.placeAll(d.text());
        if (whole.boxes(0).empty()) {
            return MODULE_NOTHING_THERE;
        }
        TextBox around = whole.boxes(0).front();
        for (const TextBox& box : whole.boxes(0)) {
            around = {std::min(around.top, box.top), std::max(around.bottom, box.bottom),
                      std::min(around.left, box.left), std::max(around.right, box.right)};
        }
        area = d.onSurface(around);
        return MODULE_OK;
    });
}

} // namespace lectern::engine
