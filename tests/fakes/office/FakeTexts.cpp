// SPDX-License-Identifier: Apache-2.0
// The texts of the office suite for tests. FakeOffice.cpp tells what their files hold.
#include "engine/office/word/WordDocument.h"
#include "modules/ModuleResults.h"
#include "tests/fakes/office/FakeSettings.h"
#include "tests/fakes/office/Misbehaviour.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

namespace lectern::engine {

namespace {

constexpr std::uint32_t CHARACTERS_PER_ROW = 10;

std::u16string widen(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

} // namespace

struct WordDocument::Private {
    fake::Settings settings;
    std::string temporaryFolder;
    std::int32_t portionsDone = 0;
    std::u16string name;
    std::uint32_t* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t laidOutWidth = 0;
    std::int32_t dpi = 72;
    std::int32_t laidOutDpi = 0;
    std::int32_t layouts = 0;
    std::int32_t top = 0;
    bool painted = false;
    std::uint32_t highlight = 0;
    std::vector<CharacterRange> hits;
    CharacterRange selection;

    std::string setting(const std::string& key) const {
        const auto found = settings.find(key);
        return found == settings.end() ? std::string() : found->second;
    }
    bool lies() const { return settings.count("lie") != 0; }
    std::int32_t rows() const {
        const std::string rowsAt72 = setting("rows");
        return (rowsAt72.empty() ? 1000 : std::stoi(rowsAt72)) * dpi / 72;
    }
    std::int32_t usedRows() const { return std::clamp(rows() - top, 0, height); }

    void paint() {
        for (std::int32_t y = 0; y < height; y++) {
            const std::int32_t row = top + y;
            const std::uint32_t color = row < rows() ? 0xFF000000 + static_cast<std::uint32_t>(row) : WHITE;
            std::fill_n(pixels + std::int64_t{y} * width, width, color);
        }
        painted = true;
    }

    // Lays out and paints unless the layout is current.
    std::int32_t ensureLaidOut() {
        if (pixels == nullptr) {
            return MODULE_FAILED;
        }
        if (laidOutWidth != width || laidOutDpi != dpi) {
            top = laidOutDpi == 0 ? 0 : top * dpi / laidOutDpi;
            laidOutWidth = width;
            laidOutDpi = dpi;
            layouts++;
            paint();
        }
        return MODULE_OK;
    }
};

WordDocument::WordDocument(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}
WordDocument::~WordDocument() = default;

int32_t WordDocument::open(Office&, const std::string& path, const std::string& password,
                           const std::string& temporaryDirectory, std::unique_ptr<WordDocument>& document) {
    auto d = std::make_unique<Private>();
    d->settings = fake::readSettings(path);
    if (std::filesystem::path(path).filename().string().rfind("other-kind", 0) == 0) {
        return MODULE_WRONG_KIND;
    }
    if (d->settings.empty()) {
        return MODULE_DAMAGED;
    }
    if (const std::string wanted = d->setting("password"); wanted != password) {
        return password.empty() ? MODULE_NEEDS_PASSWORD : MODULE_WRONG_PASSWORD;
    }
    std::ofstream(temporaryDirectory + "/copy") << "left behind\n";
    if (const int32_t result = fake::misbehave(d->setting("open")); result != MODULE_OK) {
        return result;
    }
    d->name = widen(d->setting("name"));
    d->temporaryFolder = temporaryDirectory;
    document.reset(new WordDocument(std::move(d)));
    return MODULE_OK;
}

int32_t WordDocument::openAny(Office& office, const AnyFile& file, std::unique_ptr<WordDocument>& document) {
    fake::tellProgress(fake::readSettings(file.path), file.progress);
    return open(office, file.path, file.password, file.temporaryDirectory, document);
}

int32_t WordDocument::setSurface(uint32_t* pixels, int32_t width, int32_t height) {
    if (const int32_t result = fake::misbehave(mPrivate->setting("surface")); result != MODULE_OK) {
        return result;
    }
    mPrivate->pixels = pixels;
    mPrivate->width = width;
    mPrivate->height = height;
    if (width == mPrivate->laidOutWidth) {
        mPrivate->paint();
    }
    return MODULE_OK;
}

int32_t WordDocument::setDpi(int32_t dpi) {
    mPrivate->dpi = dpi;
    return MODULE_OK;
}

int32_t WordDocument::characterCount(uint32_t& count) {
    count = static_cast<uint32_t>(mPrivate->rows()) * CHARACTERS_PER_ROW;
    return fake::misbehave(mPrivate->setting("count"));
}

int32_t WordDocument::stretchPlace(StretchPlace& place) {
    const Private& d = *mPrivate;
    const int32_t result = mPrivate->ensureLaidOut();
    place = {static_cast<uint32_t>(d.top) * CHARACTERS_PER_ROW,
             static_cast<uint32_t>(d.top + d.usedRows()) * CHARACTERS_PER_ROW,
             d.lies() ? d.height + 1 : d.usedRows(), d.top};
    return result;
}

int32_t WordDocument::scrollDown(int32_t rows, int32_t& scrolled) {
    Private& d = *mPrivate;
    if (const int32_t result = fake::misbehave(d.setting("scroll")); result != MODULE_OK) {
        return result;
    }
    if (const int32_t result = d.ensureLaidOut(); result != MODULE_OK) {
        return result;
    }
    if (d.top + d.height >= d.rows()) {
        return MODULE_NOTHING_THERE;
    }
    d.top += rows;
    d.paint();
    scrolled = d.lies() ? rows + 1 : rows;
    return MODULE_OK;
}

int32_t WordDocument::scrollUp(int32_t rows, int32_t& scrolled) {
    Private& d = *mPrivate;
    if (const int32_t result = d.ensureLaidOut(); result != MODULE_OK) {
        return result;
    }
    const int32_t moved = std::min(rows, d.top);
    d.top -= moved;
    d.paint();
    scrolled = d.lies() ? -1 : moved;
    return MODULE_OK;
}

int32_t WordDocument::jumpToCharacter(int32_t story, uint32_t position) {
    Private& d = *mPrivate;
    const auto row = static_cast<int32_t>(position / CHARACTERS_PER_ROW);
    if (story != 0 || row >= d.rows()) {
        return MODULE_BAD_ARGUMENT;
    }
    const int32_t result = d.ensureLaidOut();
    if (result == MODULE_OK) {
        d.top = row;
        d.paint();
    }
    return result;
}

int32_t WordDocument::showRow(int64_t row) {
    Private& d = *mPrivate;
    const int32_t result = d.ensureLaidOut();
    if (result == MODULE_OK) {
        d.top = static_cast<int32_t>(row);
        d.paint();
    }
    return result;
}

int32_t WordDocument::layoutSize(int32_t& width, int32_t& height) {
    const int32_t result = mPrivate->ensureLaidOut();
    width = mPrivate->width;
    height = mPrivate->rows();
    return result;
}

// In the description a character outside the basic plane at each end, and one
// unit that is none.
int32_t WordDocument::information(DocumentInformation& information) {
    std::u16string description = u"\U0001F4C4 text \U0001F4C4";
    description.insert(description.begin() + 3, char16_t{0xD800});
    information = {mPrivate->name, widen(std::to_string(mPrivate->layouts)), description, 5'000'000'000, 0};
    return fake::misbehave(mPrivate->setting("information"));
}

int32_t WordDocument::wordCount(int32_t& count) {
    count = mPrivate->rows();
    return MODULE_OK;
}

int32_t WordDocument::setHighlightColor(uint8_t red, uint8_t green, uint8_t blue) {
    mPrivate->highlight = 0xFF000000U | static_cast<uint32_t>(red << 16 | green << 8 | blue);
    return MODULE_OK;
}

int32_t WordDocument::find(const std::u16string& text, CharacterRange bounds,
                           std::vector<CharacterRange>& hits) {
    Private& d = *mPrivate;
    if (const int32_t result = fake::misbehave(d.setting("find")); result != MODULE_OK) {
        return result;
    }
    d.hits.clear();
    const std::u16string whole = widen(d.setting("text"));
    for (std::size_t at = 0; !text.empty() && (at = whole.find(text, at)) != std::u16string::npos;
         at += text.size()) {
        const auto start = static_cast<uint32_t>(at);
        const auto end = static_cast<uint32_t>(at + text.size());
        if (start >= bounds.start && end <= bounds.end) {
            d.hits.push_back({start, end});
        }
    }
    hits = d.hits;
    if (!hits.empty() && d.pixels != nullptr) {
        d.pixels[0] = d.highlight;
        d.painted = true;
    }
    return MODULE_OK;
}

int32_t WordDocument::foundRegions(std::vector<FoundRegion>& regions) {
    for (const CharacterRange& hit : mPrivate->hits) {
        const auto length = static_cast<int32_t>(hit.end - hit.start);
        regions.push_back({hit.start, {{static_cast<int32_t>(hit.start), 0, length, 1}}});
    }
    return MODULE_OK;
}

int32_t WordDocument::stopFind() {
    mPrivate->hits.clear();
    return MODULE_OK;
}

int32_t WordDocument::clickInfo(int32_t, int32_t, ClickTarget& target) {
    const std::string click = mPrivate->setting("click");
    if (click.size() < 3) {
        return MODULE_OK;
    }
    target.type = static_cast<ClickType>(std::stoi(click));
    if (target.type == ClickType::Hyperlink) {
        target.address = widen(click.substr(2));
    } else {
        target.value = static_cast<uint32_t>(std::stoul(click.substr(2)));
    }
    return MODULE_OK;
}

int32_t WordDocument::clickRegions(std::vector<PixelRect>& regions) {
    regions = {{1, 2, 3, 4}, {5, 6, 7, 8}};
    return MODULE_OK;
}

// Every row of a secondary document contains its number.
int32_t WordDocument::openSecondary(ClickType type, uint32_t number, int32_t height) {
    Private& d = *mPrivate;
    for (std::int32_t y = 0; y < d.height; y++) {
        const bool inside = y >= 50 && y < 50 + height;
        std::fill_n(d.pixels + std::int64_t{y} * d.width, d.width,
                    inside ? static_cast<uint32_t>(type) * 1000 + number : WHITE);
    }
    d.painted = true;
    return MODULE_OK;
}

int32_t WordDocument::smartZoom(int32_t x, int32_t y, PixelRect& area) {
    area = {x, y, 10, 20};
    return MODULE_OK;
}

int32_t WordDocument::selectAll() {
    mPrivate->selection = {0, static_cast<uint32_t>(mPrivate->setting("text").size())};
    return MODULE_OK;
}

int32_t WordDocument::selectArea(int32_t left, int32_t top, int32_t right, int32_t bottom) {
    if (top < 0 || bottom < top) {
        return MODULE_NOTHING_THERE;
    }
    mPrivate->selection = {static_cast<uint32_t>(left), static_cast<uint32_t>(right)};
    return MODULE_OK;
}

int32_t WordDocument::selectLine(int32_t x, int32_t) {
    mPrivate->selection = {static_cast<uint32_t>(x), static_cast<uint32_t>(x) + 8};
    return MODULE_OK;
}

int32_t WordDocument::selectWord(int32_t x, int32_t) {
    mPrivate->selection = {static_cast<uint32_t>(x), static_cast<uint32_t>(x) + 4};
    return MODULE_OK;
}

CharacterRange WordDocument::selection() const {
    return mPrivate->selection;
}

int32_t WordDocument::selectRange(CharacterRange range) {
    mPrivate->selection = range;
    return MODULE_OK;
}

int32_t WordDocument::clearSelection() {
    mPrivate->selection = {};
    return MODULE_OK;
}

int32_t WordDocument::copySelection(std::u16string& text) {
    const CharacterRange& selection = mPrivate->selection;
    text = widen(mPrivate->setting("text")).substr(selection.start, selection.end - selection.start);
    return MODULE_OK;
}

int32_t WordDocument::scrollToRange(CharacterRange range) {
    return jumpToCharacter(0, range.start);
}

bool WordDocument::prepareNext() {
    return false;
}

bool WordDocument::prepareRest() {
    Private& d = *mPrivate;
    const std::string portions = d.setting("portions");
    if (portions.empty() || d.portionsDone == std::stoi(portions)) {
        return false;
    }
    if (++d.portionsDone == std::stoi(portions)) {
        std::ofstream(d.temporaryFolder + "/prepared") << "yes\n";
    }
    return true;
}

bool WordDocument::takePainted() {
    return std::exchange(mPrivate->painted, false);
}

} // namespace lectern::engine
