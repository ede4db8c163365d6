// SPDX-License-Identifier: Apache-2.0
// How much of a long text is laid out, and what is done for the next calls while
// none waits.
#include "engine/office/word/WordDocumentPrivate.h"

#include <algorithm>
#include <cstdlib>

namespace lectern::engine {

namespace {

// Characters, or as much of short paragraphs. A call may have to wait for one.
constexpr uint32_t PORTION = 4096;

// Characters of usual text on an inch by an inch of a screen, generously.
constexpr int64_t ON_SQUARE_INCH = 80;

} // namespace

// About as many as the stretch shows; with fewer it is laid out in several portions.
uint32_t WordDocument::Private::stretchCharacters() const {
    const int64_t pixels = int64_t{surface.width} * surface.height;
    const int64_t characters = ON_SQUARE_INCH * pixels / (int64_t{dpi} * dpi);
    return static_cast<uint32_t>(std::clamp<int64_t>(characters, PORTION / 4, int64_t{16} * PORTION));
}

// The portions grow, because a row may be far away, and every portion takes some
// time besides that for its text.
void WordDocument::Private::layOutRows(int64_t row) {
    for (uint32_t portion = PORTION / 2; !flow.isWhole() && map.rowOf(flow.settled()) < row; portion *= 2) {
        layOutPortion(portion);
    }
}

void WordDocument::Private::layOutTo(uint32_t character) {
    if (flow.isWhole() || character < flow.end()) {
        return;
    }
    layOutMore([&] { flow.layOutTo(character + stretchCharacters()); });
}

void WordDocument::Private::layOutPortion(uint32_t characters) {
    layOutMore([&] { flow.layOutPortion(characters); });
}

template<class LayOut>
void WordDocument::Private::layOutMore(LayOut layOut) {
    const int64_t settled = map.rowOf(flow.settled());
    layOut();
    map = RowMap(flow.pages(), laidOut.dpi);
    painter.forgetBelow(map, settled);
}

bool WordDocument::Private::prepareStretch(int64_t row, int64_t first, int64_t last) {
    first = std::clamp<int64_t>(first, 0, map.rows());
    last = std::clamp<int64_t>(last, first, map.rows());
    if (painter.prepare(map, surface.width, first, last) || hits.prepare(text(), first, last)) {
        return true;
    }
    for (const int64_t edge : {row, row + surface.height}) {
        if (edge > 0 && edge < map.rows() && !lines.contains(edge)) {
            lineAtOrBelow(edge);
            return true;
        }
    }
    return false;
}

bool WordDocument::Private::prepareMove() {
    const int64_t row = std::max<int64_t>(top + ahead, 0);
    if (!flow.isWhole() && map.rowOf(flow.settled()) < row + surface.height + TilePainter::bandRows(dpi)) {
        layOutPortion(PORTION);
        return true;
    }
    return ahead < 0 ? prepareStretch(row, row, top) : prepareStretch(row, bottom(), bottom() + ahead);
}

void WordDocument::Private::noteJump(uint32_t position) {
    const std::vector<CharacterRange>& ranges = hits.ranges();
    if (std::any_of(ranges.begin(), ranges.end(),
                    [=](const CharacterRange& hit) { return hit.start == position; })) {
        latestHit = position;
    }
}

// Behind the hit that was jumped to last, if the stretch has left that; else below the
// stretch.
uint32_t WordDocument::Private::nextHitFrom() {
    const uint32_t end = bottomRight();
    return latestHit && (*latestHit < topLeft() || *latestHit >= end) ? *latestHit + 1 : end;
}

bool WordDocument::Private::prepareNextHit() {
    const std::vector<CharacterRange>& ranges = hits.ranges();
    if (ranges.empty()) {
        return false;
    }
    if (!nextHit) {
        const auto next =
            std::find_if(ranges.begin(), ranges.end(),
                         [from = nextHitFrom()](const CharacterRange& hit) { return hit.start >= from; });
        if (next == ranges.end() || next->start >= flow.end()) {
            return false;
        }
        nextHit = {next->start, positions.lineRow(map, next->start)};
    }
    const int64_t last = nextHit->row + surface.height;
    return (flow.isWhole() || map.rowOf(flow.settled()) > last + TilePainter::bandRows(dpi)) &&
           prepareStretch(nextHit->row, nextHit->row, last);
}

// A view moves the stretch by a third of its height.
void WordDocument::Private::expectUsualMove() {
    setAhead(surface.height / 3);
}

// The painter keeps what the next move needs, and the stretch at the next hit.
void WordDocument::Private::setAhead(int64_t rows) {
    ahead = rows;
    const size_t forMove = TilePainter::bandsFor(std::abs(rows), dpi);
    // Besides, what a move leaves, which is used later than the bands for the hit.
    const size_t forHit = hits.ranges().empty() ? 0 : TilePainter::bandsFor(surface.height, dpi) + forMove;
    painter.keep(forMove + forHit);
    nextHit.reset();
}

bool WordDocument::prepareNext() {
    Private& d = *mPrivate;
    const int32_t result = guardedInOffice([&]() -> int32_t {
        if (!d.isCurrent()) {
            return MODULE_NOTHING_THERE;
        }
        return d.prepareMove() || d.prepareNextHit() ? MODULE_OK : MODULE_NOTHING_THERE;
    });
    return result == MODULE_OK;
}

bool WordDocument::prepareRest() {
    Private& d = *mPrivate;
    const int32_t result = guardedInOffice([&]() -> int32_t {
        if (!d.isCurrent() || d.flow.isWhole()) {
            return MODULE_NOTHING_THERE;
        }
        d.layOutPortion(PORTION);
        return MODULE_OK;
    });
    return result == MODULE_OK || prepareNext();
}

} // namespace lectern::engine
