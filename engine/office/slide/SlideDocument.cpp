// SPDX-License-Identifier: Apache-2.0
// Opening a presentation, its slides and their painting.
#include "engine/office/slide/SlideDocument.h"

#include "engine/office/AnyLoading.h"
#include "engine/office/Properties.h"
#include "engine/office/slide/EncryptedFile.h"
#include "engine/office/slide/SlideDocumentPrivate.h"
#include "engine/office/slide/SlideTexts.h"

#include <com/sun/star/lang/XServiceInfo.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <limits>
#include <utility>

namespace lectern::engine {

namespace {

bool isPresentation(const css::uno::Reference<css::frame::XModel>& model) {
    const css::uno::Reference<css::lang::XServiceInfo> info(model, css::uno::UNO_QUERY);
    return info.is() && info->supportsService("com.sun.star.presentation.PresentationDocument");
}

int32_t pointsFromHundredthMm(int32_t length) {
    return static_cast<int32_t>(std::max<long>(std::lround(length * 72.0 / 2540.0), 1));
}

} // namespace

int32_t SlideDocument::open(Office& office, const std::string& path, const std::string& temporaryDirectory,
                            std::unique_ptr<SlideDocument>& document) {
    const auto load = [&](LoadedModel& loaded) -> int32_t {
        const int32_t result = loadModel(office.d(), path, "", temporaryDirectory, loaded);
        return result == MODULE_DAMAGED && isEncryptedPresentation(path) ? MODULE_NEEDS_PASSWORD : result;
    };
    return openLoaded(office, path, load, document);
}

int32_t SlideDocument::openAny(Office& office, const AnyFile& file,
                               std::unique_ptr<SlideDocument>& document) {
    const auto load = [&](LoadedModel& loaded) -> int32_t {
        const int32_t result = loadAny(office.d(), file, DocumentKind::Slides, loaded);
        if (result != MODULE_DAMAGED || !isEncryptedPresentation(file.path)) {
            return result;
        }
        // The suite does not know how to decrypt it.
        return file.password.empty() ? MODULE_NEEDS_PASSWORD : MODULE_NOT_SUPPORTED;
    };
    return openLoaded(office, file.path, load, document);
}

template<class Load>
int32_t SlideDocument::openLoaded(Office& office, const std::string& path, Load load,
                                  std::unique_ptr<SlideDocument>& document) {
    return guardedInOffice([&]() -> int32_t {
        // The suite would open an empty file as a new presentation.
        if (std::filesystem::file_size(path) == 0) {
            return MODULE_DAMAGED;
        }
        LoadedModel loaded;
        if (const int32_t result = load(loaded); result != MODULE_OK) {
            return result;
        }
        if (!isPresentation(loaded.model)) {
            return MODULE_WRONG_KIND;
        }
        document.reset(new SlideDocument(std::make_unique<Private>(office.d(), path, std::move(loaded))));
        return MODULE_OK;
    });
}

SlideDocument::SlideDocument(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}

SlideDocument::~SlideDocument() {
    guardedInOffice([this]() -> int32_t {
        mPrivate.reset();
        return MODULE_OK;
    });
}

int32_t SlideDocument::setSurface(uint32_t* pixels, int32_t width, int32_t height) {
    if (pixels == nullptr || width < 1 || height < 1 || width > MOST_PIXELS || height > MOST_PIXELS) {
        return MODULE_BAD_ARGUMENT;
    }
    mPrivate->surface = {pixels, width, height};
    mPrivate->places = PicturePlaces(mRoom);
    mPrivate->rendered.reset();
    return MODULE_OK;
}

int32_t SlideDocument::render(int32_t slide) {
    if (mPrivate->surface.pixels == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return mPrivate->onSlide(slide, [&] {
        const std::optional<int32_t> before = std::exchange(mPrivate->rendered, std::nullopt);
        int32_t place = mPrivate->paint(slide);
        const auto hits = mPrivate->found.find(slide);
        if (hits != mPrivate->found.end() && !hits->second.boxes.empty()) {
            place = mPrivate->markHits(slide, hits->second, place);
        }
        mPicture = place;
        mPrivate->warmed = 0;
        mPrivate->likelyNext = mPrivate->after(before, slide);
        mPrivate->rendered = slide;
    });
}

bool SlideDocument::prepareNext() {
    if (mPrivate->warmMemory(mPicture)) {
        return true;
    }
    const std::optional<int32_t> next = std::exchange(mPrivate->likelyNext, std::nullopt);
    if (next && mPrivate->deck.has(*next) && !mPrivate->places.has(*next)) {
        mPrivate->onSlide(*next, [&] { mPrivate->deck.preparePaint(*next); });
    }
    return false;
}

std::optional<int32_t> SlideDocument::Private::after(std::optional<int32_t> before, int32_t slide) const {
    // A slide that is slow to paint is slow to leave as well, and it may be
    // painted again in another size.
    constexpr auto QUICK = std::chrono::milliseconds(50);
    if (paintTime > QUICK) {
        return std::nullopt;
    }
    // The user probably keeps turning pages in the same direction.
    return before && slide < *before ? slide - 1 : slide + 1;
}

bool SlideDocument::Private::warmMemory(int32_t shown) {
    constexpr int64_t PORTION = 16384; // pixels; takes some ten microseconds
    constexpr int64_t CACHE_LINE = 16; // pixels
    const int64_t count = int64_t{surface.width} * surface.height;
    const int32_t next = places.next();
    if (surface.pixels == nullptr || next == shown || warmed >= count) {
        return false;
    }
    // Write back the values read, because a picture kept there may still be needed.
    volatile uint32_t* const pixels = pictureAt(next).pixels;
    const int64_t end = std::min(warmed + PORTION, count);
    for (; warmed < end; warmed += CACHE_LINE) {
        pixels[warmed] = pixels[warmed];
    }
    return true;
}

Surface SlideDocument::Private::pictureAt(int32_t place) const {
    return {surface.row(int64_t{place} * surface.height), surface.width, surface.height};
}

int32_t SlideDocument::Private::paint(int32_t slide) {
    if (const auto kept = places.find(slide)) {
        return *kept;
    }
    const int32_t place = places.take();
    const auto start = std::chrono::steady_clock::now();
    deck.paint(slide, pictureAt(place));
    paintTime = std::chrono::steady_clock::now() - start;
    places.keep(place, slide);
    return place;
}

int32_t SlideDocument::slideCount(int32_t& count) {
    count = mPrivate->deck.count();
    return MODULE_OK;
}

int32_t SlideDocument::dimensions(int32_t slide, int32_t& width, int32_t& height) {
    return mPrivate->onSlide(slide, [&] {
        const css::awt::Size size = mPrivate->deck.size(slide);
        width = pointsFromHundredthMm(size.Width);
        height = pointsFromHundredthMm(size.Height);
    });
}

int32_t SlideDocument::title(int32_t slide, std::u16string& text) {
    return mPrivate->onSlide(slide, [&] { text = slideTitle(mPrivate->deck.slide(slide)); });
}

int32_t SlideDocument::note(int32_t slide, std::u16string& text) {
    return mPrivate->onSlide(slide, [&] { text = slideNote(mPrivate->deck.slide(slide)); });
}

int32_t SlideDocument::outline(int32_t slide, std::vector<OutlineItem>& items) {
    return mPrivate->onSlide(slide, [&] { items = slideOutline(mPrivate->deck.slide(slide)); });
}

int32_t SlideDocument::information(DocumentInformation& information) {
    return guardedInOffice([&]() -> int32_t {
        information = informationOf(mPrivate->deck.model());
        return MODULE_OK;
    });
}

int32_t SlideDocument::releaseMemory() {
    mPrivate->places.clear();
    mPrivate->warmed = std::numeric_limits<int64_t>::max();
    std::fill(mPrivate->texts.begin(), mPrivate->texts.end(), std::nullopt);
    return MODULE_OK;
}

} // namespace lectern::engine
