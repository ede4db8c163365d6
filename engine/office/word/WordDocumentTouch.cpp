// SPDX-License-Identifier: Apache-2.0
// What views with touch manners ask of a text: the line at a point, the part that a tap
// shows, the text on the screen, and the headings.
#include "engine/layout/Twips.h"
#include "engine/office/word/PageStyles.h"
#include "engine/office/word/TableColumns.h"
#include "engine/office/word/WordDocumentPrivate.h"

#include <algorithm>

namespace lectern::engine {

using css::uno::Reference;

namespace {

// The most lines of a call: more than fit on any screen.
constexpr size_t MOST_SHOWN_LINES = 2000;

int32_t pixels(int64_t hundredthMm, int32_t dpi) {
    return static_cast<int32_t>(twipsFromHundredthMm(hundredthMm) * dpi / TWIPS_PER_INCH);
}

// Adds the lines of a paragraph inside a range.
void addLines(const TextPositions& positions, const BodyParagraph& paragraph, CharacterRange near,
              std::vector<CharacterRange>& lines) {
    const uint32_t end = std::min(paragraph.start + paragraph.length, near.end);
    uint32_t start = std::max(paragraph.start, near.start);
    if (paragraph.kind == BodyParagraph::Kind::Attached) {
        lines.push_back({paragraph.start, paragraph.start + paragraph.length});
        return;
    }
    while (start < end && lines.size() < MOST_SHOWN_LINES) {
        const uint32_t next =
            std::min(std::max(positions.lineOf(start).end, start + 1), paragraph.start + paragraph.length);
        lines.push_back({start, next});
        start = next;
    }
}

// The smallest rectangle with these boxes.
TextBox around(const std::vector<TextBox>& boxes) {
    TextBox whole = boxes.front();
    for (const TextBox& box : boxes) {
        whole = {std::min(whole.top, box.top), std::max(whole.bottom, box.bottom),
                 std::min(whole.left, box.left), std::max(whole.right, box.right)};
    }
    return whole;
}

} // namespace

int32_t WordDocument::characterAt(int32_t x, int32_t y, uint32_t& character, std::vector<PixelRect>& line) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        const int64_t used = d.usedRows();
        if (used < 1) {
            return MODULE_NOTHING_THERE;
        }
        const auto found = d.positions.lineNear(d.map, std::clamp(x, 0, d.surface.width - 1),
                                                d.top + std::clamp<int64_t>(y, 0, used - 1));
        character = found.character;
        line = {d.onSurface({found.first, found.last, 0, d.surface.width})};
        return MODULE_OK;
    });
}

int32_t WordDocument::textSize(int64_t& top, int64_t& rows, uint32_t& characters) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        top = d.top;
        rows = d.map.rows();
        characters = d.flow.isWhole() ? d.positions.count() : std::min(d.flow.end(), d.positions.count());
        return MODULE_OK;
    });
}

int32_t WordDocument::tapArea(int32_t x, int32_t y, std::vector<PixelRect>& area, int32_t& mostDpi) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        if (!d.isOnText(x, y)) {
            return MODULE_NOTHING_THERE;
        }
        const auto at = d.positions.pointedAt(d.map, x, d.top + y);
        const auto& cursor = d.flow.cursor();
        const auto row = static_cast<int32_t>(d.map.rowOf(d.flow.cursorPlace()) - d.top);
        if (at.object.is()) {
            const auto size = property<css::awt::Size>(at.object, "LayoutSize");
            area = {{pixels(cursor->getPosition().X, d.dpi), row, pixels(size.Width, d.dpi),
                     pixels(size.Height, d.dpi)}};
            mostDpi = 0;
            return size.Width > 0 ? MODULE_OK : MODULE_NOTHING_THERE;
        }
        const double least = leastTableWidth(propertiesOf(cursor));
        if (least <= 0.0) {
            return MODULE_NOTHING_THERE;
        }
        const int32_t margin = pixels(PAGE_MARGIN, d.dpi);
        area = {{margin, row, d.surface.width - 2 * margin, 1}};
        const int64_t width = static_cast<int64_t>(least) + 2 * twipsFromHundredthMm(PAGE_MARGIN);
        mostDpi = std::max(1, static_cast<int32_t>(d.surface.width * TWIPS_PER_INCH / width));
        return MODULE_OK;
    });
}

int32_t WordDocument::textLines(int32_t top, int32_t bottom, std::u16string& text,
                                std::vector<uint32_t>& ends, std::vector<PixelRect>& places) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        const int64_t first = std::clamp<int64_t>(d.top + top, 0, d.map.rows());
        const int64_t last = std::clamp<int64_t>(d.top + bottom, first, d.map.rows());
        if (first == last) {
            return MODULE_OK;
        }
        const CharacterRange near = d.positions.around(d.map, first, last);
        std::vector<CharacterRange> lines;
        for (const BodyParagraph& paragraph : d.prepared.body.paragraphs()) {
            if (paragraph.start + paragraph.length > near.start && paragraph.start < near.end) {
                addLines(d.positions, paragraph, near, lines);
            }
        }
        PlacedRanges placed(lines);
        placed.placeAll(d.text());
        for (size_t i = 0; i < lines.size(); ++i) {
            if (placed.boxes(i).empty()) {
                continue;
            }
            const TextBox place = around(placed.boxes(i));
            if (place.top < last && place.bottom > first) {
                text += d.prepared.body.string().substr(lines[i].start, lines[i].end - lines[i].start);
                ends.push_back(static_cast<uint32_t>(text.size()));
                places.push_back(d.onSurface(place));
            }
        }
        return MODULE_OK;
    });
}

int32_t WordDocument::outline(std::u16string& text, std::vector<uint32_t>& ends, std::vector<int32_t>& levels,
                              std::vector<uint32_t>& positions) {
    const Body& body = mPrivate->prepared.body;
    return guardedInOffice([&]() -> int32_t {
        for (const BodyParagraph& paragraph : body.paragraphs()) {
            if (paragraph.kind == BodyParagraph::Kind::Attached || paragraph.length == 0) {
                continue;
            }
            const auto properties = propertiesOf(paragraph.range);
            const auto level = property<sal_Int16>(properties, "OutlineLevel"); // 0: no heading
            if (level < 1) {
                continue;
            }
            if (const auto number = property<OUString>(properties, "ListLabelString"); !number.isEmpty()) {
                text += toText(number) + u" ";
            }
            text += body.string().substr(paragraph.start, paragraph.length);
            ends.push_back(static_cast<uint32_t>(text.size()));
            levels.push_back(level - 1);
            positions.push_back(paragraph.start);
        }
        return MODULE_OK;
    });
}

} // namespace lectern::engine
