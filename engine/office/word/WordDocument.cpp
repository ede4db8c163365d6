// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/WordDocument.h"

#include "engine/office/AnyLoading.h"
#include "engine/office/word/WordDocumentPrivate.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

namespace lectern::engine {

namespace {

// The most rows whose lines are remembered.
constexpr size_t MOST_LINES = 64;

} // namespace

WordDocument::Private::Private(Office::Private& suite, OpenedDocument openedDocument)
    : office(suite), document(std::move(openedDocument)), prepared(prepareForReflow(document.model)),
      flow(document, prepared), positions(document, prepared, flow), painter(*document.painter),
      dpi(DEFAULT_DPI) {}

void WordDocument::Private::layOut() {
    const uint32_t kept = top > 0 ? topLeft() : 0;
    flow.layOut(layoutWidth(surface.width, dpi), kept + stretchCharacters());
    map = RowMap(flow.pages(), dpi);
    painter.forget();
    lines.clear();
    for (PlacedRanges* ranges : {&hits, &selectedLines}) {
        ranges->forgetPlaces();
    }
    if (sideTexts) {
        sideTexts->places().forgetPlaces();
    }
    laidOut = {surface.width, surface.height, dpi};
    expectUsualMove();
    top = kept > 0 ? positions.lineRow(map, kept) : 0;
    layOutRows(bottom());
}

uint32_t WordDocument::Private::lineAtOrBelow(int64_t row) {
    if (const auto known = lines.find(row); known != lines.end()) {
        return known->second;
    }
    if (lines.size() >= MOST_LINES) {
        lines.clear();
    }
    return lines[row] = positions.lineAtOrBelow(map, row);
}

int64_t WordDocument::Private::lineRow(uint32_t position) const {
    return nextHit && nextHit->position == position ? nextHit->row : positions.lineRow(map, position);
}

void WordDocument::Private::paint(int32_t first, int32_t last) {
    painter.paint(map, top, surface, first, last);
    painted = true;
    mark(hits, first, last, hitColour);
    mark(selectedLines, first, last, selectionColour);
}

void WordDocument::Private::repaint() {
    if (surface.pixels != nullptr && isCurrent()) {
        paint(0, surface.height);
    }
}

void WordDocument::Private::mark(PlacedRanges& ranges, int32_t first, int32_t last, const Colour& colour) {
    for (const size_t index : ranges.inRows(text(), top + first, top + last)) {
        for (const TextBox& box : ranges.boxes(index)) {
            tint(surface, top, box, first, last, colour);
        }
        painted = true;
    }
}

void WordDocument::Private::moveTo(int64_t row) {
    layOutRows(row + surface.height);
    const int64_t by = row - top;
    top = row;
    const int64_t kept = surface.height - std::abs(by);
    if (by != 0) {
        kept > 0 ? setAhead(by) : expectUsualMove();
    }
    if (kept <= 0) {
        paint(0, surface.height);
        return;
    }
    const auto bytes = static_cast<size_t>(kept * surface.width) * sizeof(uint32_t);
    const auto rows = static_cast<int32_t>(kept);
    if (by > 0) {
        std::memmove(surface.row(0), surface.row(by), bytes);
        paint(rows, surface.height);
    } else if (by < 0) {
        std::memmove(surface.row(-by), surface.row(0), bytes);
        paint(0, surface.height - rows);
    }
}

uint32_t WordDocument::Private::topLeft() {
    if (top == 0) {
        return 0;
    }
    const uint32_t last = positions.count();
    return std::clamp(lineAtOrBelow(top), std::min(1U, last), last);
}

uint32_t WordDocument::Private::bottomRight() {
    const uint32_t count = positions.count();
    if (bottom() >= map.rows()) {
        return count;
    }
    // The last line may begin above the bottom and go on below it.
    return std::min(lineAtOrBelow(bottom()), std::max(count, 1U) - 1);
}

int32_t WordDocument::open(Office& office, const std::string& path, const std::string& password,
                           const std::string& temporaryDirectory, std::unique_ptr<WordDocument>& document) {
    return guardedInOffice([&]() -> int32_t {
        OpenedDocument opened;
        const int32_t result = loadDocument(office.d(), path, password, temporaryDirectory, opened);
        if (result == MODULE_OK) {
            document.reset(new WordDocument(std::make_unique<Private>(office.d(), std::move(opened))));
        }
        return result;
    });
}

int32_t WordDocument::openAny(Office& office, const AnyFile& file, std::unique_ptr<WordDocument>& document) {
    return guardedInOffice([&]() -> int32_t {
        LoadedModel loaded;
        int32_t result = loadAny(office.d(), file, DocumentKind::Text, loaded);
        if (result != MODULE_OK) {
            return result;
        }
        OpenedDocument opened;
        result = openAsText(std::move(loaded), opened);
        if (result == MODULE_OK) {
            document.reset(new WordDocument(std::make_unique<Private>(office.d(), std::move(opened))));
        }
        return result;
    });
}

WordDocument::WordDocument(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}

WordDocument::~WordDocument() {
    guardedInOffice([this]() -> int32_t {
        mPrivate.reset();
        return MODULE_OK;
    });
}

int32_t WordDocument::setSurface(uint32_t* pixels, int32_t width, int32_t height) {
    if (pixels == nullptr || width < 1 || height < 1 || width > MOST_PIXELS || height > MOST_PIXELS) {
        return MODULE_BAD_ARGUMENT;
    }
    mPrivate->surface = {pixels, width, height};
    return guardedInOffice([this]() -> int32_t {
        mPrivate->repaint();
        return MODULE_OK;
    });
}

int32_t WordDocument::setDpi(int32_t dpi) {
    if (dpi < 1 || dpi > MOST_DPI) {
        return MODULE_BAD_ARGUMENT;
    }
    mPrivate->dpi = dpi;
    return MODULE_OK;
}

int32_t WordDocument::characterCount(uint32_t& count) {
    count = mPrivate->positions.count();
    return MODULE_OK;
}

int32_t WordDocument::stretchPlace(StretchPlace& place) {
    return mPrivate->onLayout([&]() -> int32_t {
        place = {mPrivate->topLeft(), mPrivate->bottomRight(), static_cast<int32_t>(mPrivate->usedRows()),
                 mPrivate->top};
        return MODULE_OK;
    });
}

int32_t WordDocument::scrollDown(int32_t rows, int32_t& scrolled) {
    return scroll(rows, scrolled, [&] {
        return mPrivate->bottom() >= mPrivate->map.rows() ? std::nullopt : std::optional<int64_t>(rows);
    });
}

int32_t WordDocument::scrollUp(int32_t rows, int32_t& scrolled) {
    return scroll(rows, scrolled, [&] { return std::optional(-std::min<int64_t>(rows, mPrivate->top)); });
}

// `moved` returns the rows to move down by, or nothing when no move is possible.
template<class Moved>
int32_t WordDocument::scroll(int32_t rows, int32_t& scrolled, Moved moved) {
    scrolled = 0;
    if (rows < 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return mPrivate->onLayout([&]() -> int32_t {
        const std::optional<int64_t> by = moved();
        if (!by) {
            return MODULE_NOTHING_THERE;
        }
        mPrivate->moveTo(mPrivate->top + *by);
        scrolled = static_cast<int32_t>(std::abs(*by));
        return MODULE_OK;
    });
}

int32_t WordDocument::jumpToCharacter(int32_t story, uint32_t position) {
    if (story != 0 || position > mPrivate->positions.count()) {
        return MODULE_BAD_ARGUMENT;
    }
    return mPrivate->onLayout([&]() -> int32_t {
        mPrivate->layOutTo(position);
        mPrivate->moveTo(mPrivate->lineRow(position));
        mPrivate->noteJump(position);
        return MODULE_OK;
    });
}

int32_t WordDocument::showRow(int64_t row) {
    constexpr int64_t MOST_ROWS = int64_t{1} << 40; // far from overflows, and more than any text has
    if (row < 0 || row > MOST_ROWS) {
        return MODULE_BAD_ARGUMENT;
    }
    return mPrivate->onLayout([&]() -> int32_t {
        mPrivate->moveTo(row);
        return MODULE_OK;
    });
}

int32_t WordDocument::layoutSize(int32_t& width, int32_t& height) {
    return mPrivate->onLayout([&]() -> int32_t {
        mPrivate->layOutTo(mPrivate->positions.count());
        width = mPrivate->surface.width;
        height = static_cast<int32_t>(
            std::min<int64_t>(mPrivate->map.rows(), std::numeric_limits<int32_t>::max()));
        return MODULE_OK;
    });
}

bool WordDocument::takePainted() {
    return std::exchange(mPrivate->painted, false);
}

} // namespace lectern::engine
