// SPDX-License-Identifier: Apache-2.0
// Selecting text by points, and copying the selection.
#include "engine/office/word/WordDocumentPrivate.h"

#include <com/sun/star/text/XWordCursor.hpp>

#include <algorithm>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

void WordDocument::Private::select(CharacterRange range) {
    const bool wasMarked = !selectedLines.ranges().empty();
    std::vector<CharacterRange> parts;
    for (const BodyParagraph& paragraph : prepared.body.paragraphs()) {
        const CharacterRange part{std::max(range.start, paragraph.start),
                                  std::min(range.end, paragraph.start + paragraph.length)};
        if (!part.isEmpty()) {
            parts.push_back(part);
        }
    }
    selection = range;
    selectedLines = PlacedRanges(std::move(parts));
    selectionColour = highlight;
    if (wasMarked) {
        repaint();
    } else if (surface.pixels != nullptr && isCurrent()) {
        mark(selectedLines, 0, surface.height, selectionColour);
    }
}

int32_t WordDocument::selectAll() {
    return guardedInOffice([this]() -> int32_t {
        mPrivate->select({0, mPrivate->prepared.body.length()});
        return MODULE_OK;
    });
}

int32_t WordDocument::selectArea(int32_t left, int32_t top, int32_t right, int32_t bottom) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        const int64_t used = d.usedRows();
        if (left > right || top > bottom || right < 0 || bottom < 0 || left >= d.surface.width ||
            top >= used) {
            return MODULE_NOTHING_THERE;
        }
        const auto at = [&](int32_t x, int64_t y) {
            return d.positions.nearest(d.map, std::clamp(x, 0, d.surface.width - 1),
                                       d.top + std::clamp<int64_t>(y, 0, used - 1));
        };
        const auto [start, end] = std::minmax({at(left, top), at(right, bottom)});
        d.select({start, end});
        return MODULE_OK;
    });
}

int32_t WordDocument::selectLine(int32_t x, int32_t y) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        if (!d.isOnText(x, y)) {
            return MODULE_NOTHING_THERE;
        }
        d.select(d.positions.lineOf(d.positions.nearest(d.map, x, d.top + y)));
        return MODULE_OK;
    });
}

int32_t WordDocument::selectWord(int32_t x, int32_t y) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        if (!d.isOnText(x, y)) {
            return MODULE_NOTHING_THERE;
        }
        const uint32_t position = d.positions.nearest(d.map, x, d.top + y);
        const auto cursor = d.positions.select({position, position});
        const Reference<css::text::XWordCursor> word(cursor, UNO_QUERY_THROW);
        if (!word->gotoStartOfWord(false) || !word->gotoEndOfWord(true)) {
            return MODULE_NOTHING_THERE;
        }
        d.select({d.positions.positionOf(cursor->getStart()), d.positions.positionOf(cursor->getEnd())});
        return MODULE_OK;
    });
}

int32_t WordDocument::moveSelectionEnd(int32_t end, int32_t x, int32_t y) {
    Private& d = *mPrivate;
    if (end != 0 && end != 1) {
        return MODULE_BAD_ARGUMENT;
    }
    return d.onLayout([&]() -> int32_t {
        const int64_t used = d.usedRows();
        CharacterRange range = d.selection;
        if (range.isEmpty() || used < 1) {
            return MODULE_NOTHING_THERE;
        }
        const uint32_t position = d.positions.nearest(d.map, std::clamp(x, 0, d.surface.width - 1),
                                                      d.top + std::clamp<int64_t>(y, 0, used - 1));
        if (end == 0) {
            range.start = std::min(position, range.end - 1);
        } else {
            range.end = std::max(std::min(position, d.prepared.body.length()), range.start + 1);
        }
        d.select(range);
        return MODULE_OK;
    });
}

int32_t WordDocument::selectionRegions(std::vector<PixelRect>& rectangles) {
    Private& d = *mPrivate;
    return d.onLayout([&]() -> int32_t {
        for (const size_t index : d.selectedLines.inRows(d.text(), d.top, d.bottom())) {
            for (const TextBox& box : d.selectedLines.boxes(index)) {
                if (box.top < d.bottom() && box.bottom > d.top) {
                    rectangles.push_back(d.onSurface(box));
                }
            }
        }
        return MODULE_OK;
    });
}

CharacterRange WordDocument::selection() const {
    return mPrivate->selection;
}

int32_t WordDocument::selectRange(CharacterRange range) {
    const uint32_t length = mPrivate->prepared.body.length();
    if (range.start > range.end || range.end > length) {
        return MODULE_BAD_ARGUMENT;
    }
    return guardedInOffice([&]() -> int32_t {
        mPrivate->select(range);
        return MODULE_OK;
    });
}

int32_t WordDocument::clearSelection() {
    return guardedInOffice([this]() -> int32_t {
        mPrivate->select({});
        return MODULE_OK;
    });
}

int32_t WordDocument::copySelection(std::u16string& text) {
    const CharacterRange& selection = mPrivate->selection;
    return guardedInOffice([&]() -> int32_t {
        text = mPrivate->prepared.body.string().substr(selection.start, selection.end - selection.start);
        std::replace(text.begin(), text.end(), PARAGRAPH_SEPARATOR, u'\n');
        return MODULE_OK;
    });
}

int32_t WordDocument::scrollToRange(CharacterRange range) {
    Private& d = *mPrivate;
    if (range.start > range.end || range.end > d.positions.count()) {
        return MODULE_BAD_ARGUMENT;
    }
    return d.onLayout([&]() -> int32_t {
        d.layOutTo(range.end);
        const int64_t first = d.positions.lineRow(d.map, range.start);
        const int64_t last = d.positions.lineRow(d.map, range.end);
        if (first < d.top || last >= d.bottom()) {
            d.moveTo(first);
        }
        return MODULE_OK;
    });
}

} // namespace lectern::engine
