// SPDX-License-Identifier: Apache-2.0
#include "engine/office/WordDocument.h"

#include "engine/office/Properties.h"
#include "engine/office/TextPositions.h"
#include "engine/office/TilePainter.h"
#include "modules/ModuleResults.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <limits>

namespace lectern::engine {

namespace {

constexpr int32_t defaultDpi = 72;
constexpr int32_t mostDpi = 2400;
constexpr int32_t mostPixels = 16384; // of a side

// Pages narrower or wider than these, in twips, are not laid out as asked.
constexpr int64_t leastWidth = 600;
constexpr int64_t mostWidth = 400'000;

// The suite reports by exceptions; here they end.
template<class Work>
int32_t guarded(Work work) noexcept {
    try {
        return work();
    } catch (const css::uno::Exception& error) {
        std::fprintf(stderr, "office: %s\n",
                     OUStringToOString(error.Message, RTL_TEXTENCODING_UTF8).getStr());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "office: %s\n", error.what());
    } catch (...) {
        std::fprintf(stderr, "office: unknown failure\n");
    }
    return MODULE_FAILED;
}

// What a layout is made for.
struct LayoutKey {
    int32_t width = 0;
    int32_t height = 0;
    int32_t dpi = 0;
    friend bool operator==(const LayoutKey&, const LayoutKey&) = default;
};

} // namespace

struct WordDocument::Private {
    explicit Private(OpenedDocument openedDocument)
        : document(std::move(openedDocument)), prepared(prepareForReflow(document.model)),
          flow(document, prepared), positions(document, prepared, flow), painter(*document.painter) {}

    bool ready() const { return surface.pixels != nullptr; }
    bool current() const { return laidOut == LayoutKey{surface.width, surface.height, dpi}; }
    int64_t bottom() const { return top + surface.height; }

    // Lays out and paints when the surface's size or the dpi has changed since.
    // MODULE_BAD_ARGUMENT without a surface.
    int32_t update();
    void layOut();
    void paint(int32_t first, int32_t last);
    // Moves the stretch, keeping what stays visible.
    void moveTo(int64_t row);
    uint32_t topLeft() const;

    OpenedDocument document;
    PreparedDocument prepared;
    TextFlow flow;
    TextPositions positions;
    TilePainter painter;
    RowMap map;
    Surface surface;
    int32_t dpi = defaultDpi;
    LayoutKey laidOut;
    int64_t top = 0; // the stretch's first row
    bool painted = false;
};

int32_t WordDocument::Private::update() {
    if (!ready())
        return MODULE_BAD_ARGUMENT;
    if (!current()) {
        layOut();
        paint(0, surface.height);
    }
    return MODULE_OK;
}

void WordDocument::Private::layOut() {
    const uint32_t kept = top > 0 ? topLeft() : 0;
    const int64_t width = (int64_t{surface.width} * 1440 + dpi - 1) / dpi;
    flow.layOut(static_cast<int32_t>(std::clamp(width, leastWidth, mostWidth)));
    map = RowMap(flow.pages(), dpi);
    painter.forget();
    laidOut = {surface.width, surface.height, dpi};
    top = kept > 0 ? positions.lineRow(map, kept) : 0;
}

void WordDocument::Private::paint(int32_t first, int32_t last) {
    painter.paint(map, top, surface, first, last);
    painted = true;
}

void WordDocument::Private::moveTo(int64_t row) {
    const int64_t by = row - top;
    top = row;
    const int64_t kept = surface.height - std::abs(by);
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

uint32_t WordDocument::Private::topLeft() const {
    if (top == 0)
        return 0;
    const uint32_t last = positions.count();
    return std::clamp(positions.lineAtOrBelow(map, top), std::min(1U, last), last);
}

int32_t WordDocument::open(Office& office, const std::string& path, const std::string& password,
                           const std::string& temporaryDirectory, std::unique_ptr<WordDocument>& document) {
    return guarded([&]() -> int32_t {
        OpenedDocument opened;
        const int32_t result = loadDocument(office.d(), path, password, temporaryDirectory, opened);
        if (result == MODULE_OK)
            document.reset(new WordDocument(std::make_unique<Private>(std::move(opened))));
        return result;
    });
}

WordDocument::WordDocument(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}

WordDocument::~WordDocument() {
    guarded([this]() -> int32_t {
        mPrivate.reset();
        return MODULE_OK;
    });
}

int32_t WordDocument::setSurface(uint32_t* pixels, int32_t width, int32_t height) {
    if (pixels == nullptr || width < 1 || height < 1 || width > mostPixels || height > mostPixels)
        return MODULE_BAD_ARGUMENT;
    mPrivate->surface = {pixels, width, height};
    return guarded([this]() -> int32_t {
        if (mPrivate->current())
            mPrivate->paint(0, mPrivate->surface.height);
        return MODULE_OK;
    });
}

int32_t WordDocument::setDpi(int32_t dpi) {
    if (dpi < 1 || dpi > mostDpi)
        return MODULE_BAD_ARGUMENT;
    mPrivate->dpi = dpi;
    return MODULE_OK;
}

int32_t WordDocument::characterCount(uint32_t& count) {
    count = mPrivate->positions.count();
    return MODULE_OK;
}

int32_t WordDocument::topLeftCharacter(uint32_t& position) {
    return guarded([&]() -> int32_t {
        const int32_t result = mPrivate->update();
        if (result == MODULE_OK)
            position = mPrivate->topLeft();
        return result;
    });
}

int32_t WordDocument::bottomRightCharacter(uint32_t& position) {
    return guarded([&]() -> int32_t {
        const int32_t result = mPrivate->update();
        if (result != MODULE_OK)
            return result;
        const uint32_t count = mPrivate->positions.count();
        const int64_t bottom = mPrivate->bottom();
        const bool all = bottom >= mPrivate->map.rows();
        // The last line may begin above the bottom and go on below it.
        position =
            all ? count
                : std::min(mPrivate->positions.lineAtOrBelow(mPrivate->map, bottom), std::max(count, 1U) - 1);
        return MODULE_OK;
    });
}

int32_t WordDocument::verticalLastUsedPixel(int32_t& rows) {
    return guarded([&]() -> int32_t {
        const int32_t result = mPrivate->update();
        if (result == MODULE_OK)
            rows = static_cast<int32_t>(
                std::clamp<int64_t>(mPrivate->map.rows() - mPrivate->top, 0, mPrivate->surface.height));
        return result;
    });
}

int32_t WordDocument::scrollDown(int32_t rows, int32_t& scrolled) {
    scrolled = 0;
    if (rows < 0)
        return MODULE_BAD_ARGUMENT;
    return guarded([&]() -> int32_t {
        const int32_t result = mPrivate->update();
        if (result != MODULE_OK)
            return result;
        if (mPrivate->bottom() >= mPrivate->map.rows())
            return MODULE_NOTHING_THERE;
        mPrivate->moveTo(mPrivate->top + rows);
        scrolled = rows;
        return MODULE_OK;
    });
}

int32_t WordDocument::scrollUp(int32_t rows, int32_t& scrolled) {
    scrolled = 0;
    if (rows < 0)
        return MODULE_BAD_ARGUMENT;
    return guarded([&]() -> int32_t {
        const int32_t result = mPrivate->update();
        if (result != MODULE_OK)
            return result;
        const int64_t by = std::min<int64_t>(rows, mPrivate->top);
        mPrivate->moveTo(mPrivate->top - by);
        scrolled = static_cast<int32_t>(by);
        return MODULE_OK;
    });
}

int32_t WordDocument::jumpToCharacter(int32_t story, uint32_t position) {
    if (story != 0 || position > mPrivate->positions.count())
        return MODULE_BAD_ARGUMENT;
    return guarded([&]() -> int32_t {
        const int32_t result = mPrivate->update();
        if (result == MODULE_OK)
            mPrivate->moveTo(mPrivate->positions.lineRow(mPrivate->map, position));
        return result;
    });
}

int32_t WordDocument::layoutSize(int32_t& width, int32_t& height) {
    return guarded([&]() -> int32_t {
        const int32_t result = mPrivate->update();
        if (result != MODULE_OK)
            return result;
        width = mPrivate->surface.width;
        height = static_cast<int32_t>(
            std::min<int64_t>(mPrivate->map.rows(), std::numeric_limits<int32_t>::max()));
        return MODULE_OK;
    });
}

int32_t WordDocument::name(std::u16string& text) {
    return guarded([&]() -> int32_t {
        text = toText(documentProperties(mPrivate->document.model)->getTitle());
        return MODULE_OK;
    });
}

int32_t WordDocument::author(std::u16string& text) {
    return guarded([&]() -> int32_t {
        text = toText(documentProperties(mPrivate->document.model)->getAuthor());
        return MODULE_OK;
    });
}

int32_t WordDocument::description(std::u16string& text) {
    return guarded([&]() -> int32_t {
        text = toText(documentProperties(mPrivate->document.model)->getDescription());
        return MODULE_OK;
    });
}

int32_t WordDocument::creationDate(int64_t& time) {
    return guarded([&]() -> int32_t {
        time = toUnixTime(documentProperties(mPrivate->document.model)->getCreationDate());
        return MODULE_OK;
    });
}

int32_t WordDocument::lastSavedDate(int64_t& time) {
    return guarded([&]() -> int32_t {
        time = toUnixTime(documentProperties(mPrivate->document.model)->getModificationDate());
        return MODULE_OK;
    });
}

int32_t WordDocument::wordCount(int32_t& count) {
    return guarded([&]() -> int32_t {
        count = property<sal_Int32>(propertiesOf(mPrivate->document.model), "WordCount");
        return MODULE_OK;
    });
}

bool WordDocument::takePainted() {
    return std::exchange(mPrivate->painted, false);
}

} // namespace lectern::engine
