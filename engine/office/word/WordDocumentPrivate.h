// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/SearchText.h"
#include "engine/office/OfficeGuard.h"
#include "engine/office/word/BoxTint.h"
#include "engine/office/word/Links.h"
#include "engine/office/word/References.h"
#include "engine/office/word/TilePainter.h"
#include "engine/office/word/WordDocument.h"

#include <map>
#include <optional>

namespace lectern::engine {

// The values that a layout depends on.
struct LayoutKey {
    int32_t width = 0;
    int32_t height = 0;
    int32_t dpi = 0;
    friend bool operator==(const LayoutKey&, const LayoutKey&) = default;
};

struct WordDocument::Private {
    Private(Office::Private& suite, OpenedDocument openedDocument);

    // Runs work that needs the layout. When the size of the surface or the dpi
    // has changed since the last layout, lays out and paints first. Returns
    // MODULE_BAD_ARGUMENT without a surface.
    template<class Work>
    int32_t onLayout(Work work) noexcept {
        return guardedInOffice([&]() -> int32_t {
            if (surface.pixels == nullptr) {
                return MODULE_BAD_ARGUMENT;
            }
            if (!isCurrent()) {
                layOut();
                paint(0, surface.height);
            }
            layOutRows(bottom());
            return work();
        });
    }
    bool isCurrent() const { return laidOut == LayoutKey{surface.width, surface.height, dpi}; }
    void layOut();
    uint32_t stretchCharacters() const;
    // Lays out more of the text until a row is settled, or a character laid out.
    void layOutRows(int64_t row);
    void layOutTo(uint32_t character);
    void layOutPortion(uint32_t characters);
    template<class LayOut>
    void layOutMore(LayOut layOut);
    // Does a part of what the next move in the same direction needs. Returns false
    // when nothing of it is left to do.
    bool prepareMove();
    // ... and what a jump to the next hit needs.
    bool prepareNextHit();
    void noteJump(uint32_t position);
    // The first character at which the next hit may begin.
    uint32_t nextHitFrom();
    // Does a part of what a stretch that begins at `row` needs, when rows [first,
    // last) of it are new.
    bool prepareStretch(int64_t row, int64_t first, int64_t last);
    void setAhead(int64_t rows);
    void expectUsualMove();

    // Paints rows [first, last) of the stretch with the hits and the selection.
    void paint(int32_t first, int32_t last);
    // Paints the whole stretch if the layout is current; otherwise onLayout will do it.
    void repaint();
    // Tints the parts of the ranges that lie in rows [first, last) of the stretch.
    void mark(PlacedRanges& ranges, int32_t first, int32_t last, const Colour& colour);
    // Marks the hits on the surface, which is painted anew if it has marks.
    void markHits(bool wasMarked);
    // Moves the stretch and reuses the rows that stay visible.
    void moveTo(int64_t row);

    int64_t bottom() const { return top + surface.height; }
    int64_t usedRows() const { return std::clamp<int64_t>(map.rows() - top, 0, surface.height); }
    bool isOnText(int32_t x, int32_t y) const;
    uint32_t topLeft();
    uint32_t bottomRight();
    // As in TextPositions, without asking the suite for what is known.
    uint32_t lineAtOrBelow(int64_t row);
    int64_t lineRow(uint32_t position) const;
    LaidOutText text() { return {*document.painter, flow, positions, map}; }
    // The rectangle of a box on the surface.
    PixelRect onSurface(const TextBox& box) const;
    References& references();
    // Selects one range for each paragraph, because selections are marked
    // paragraph by paragraph.
    void select(CharacterRange range);

    Office::Private& office;
    OpenedDocument document;
    PreparedDocument prepared;
    TextFlow flow;
    TextPositions positions;
    TilePainter painter;
    RowMap map;
    Surface surface;
    int32_t dpi;
    LayoutKey laidOut;
    int64_t top = 0;   // first row of the stretch
    int64_t ahead = 0; // rows by which it moves next, if it moves on in the same way; negative upwards
    bool painted = false;
    // The hit that is jumped to next, until the stretch moves.
    struct NextHit {
        uint32_t position;
        int64_t row;
    };
    std::optional<NextHit> nextHit;
    std::optional<uint32_t> latestHit; // where the hit begins that was jumped to last
    std::map<int64_t, uint32_t> lines; // the first characters of lines at or below rows

    Colour highlight{128, 192, 255};      // for later finds and selections
    std::optional<SearchText> searchText; // created by the first search
    int32_t findOptions = 0;
    PlacedRanges hits;
    Colour hitColour{};
    CharacterRange selection;
    PlacedRanges selectedLines;
    Colour selectionColour{};
    std::optional<References> sideTexts; // created on first use
};

} // namespace lectern::engine
