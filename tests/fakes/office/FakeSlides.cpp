// SPDX-License-Identifier: Apache-2.0
// Presentations of the fake office suite, text files as in FakeOffice.cpp:
//   name, password    as there
//   render, find      how these calls misbehave, see Misbehaviour.h
//   lie               return an impossible size and regions without rectangles
// There are three slides of 720 x 540; slide s is painted 0xFF000000 + s *
// 0x10000 + the row of its pixels. Its title is "Title s", and slide 1 has the
// note "Remember". The left half of each is a shape and a link, its upper part to
// slide 2, and has the lines "ab" and "c". A search has one hit on slide 0, and on
// slide 1 as many as its text is long, each with two rectangles, and one in the note
// unless it has options.

#include "engine/office/slide/SlideDocument.h"
#include "modules/ModuleResults.h"
#include "tests/fakes/office/FakeSettings.h"
#include "tests/fakes/office/Misbehaviour.h"

#include <algorithm>
#include <limits>

namespace lectern::engine {

namespace {

constexpr int32_t SLIDES = 3;

int32_t whenSlide(int32_t slide) {
    return slide >= 0 && slide < SLIDES ? MODULE_OK : MODULE_BAD_ARGUMENT;
}

} // namespace

struct SlideDocument::Private {
    fake::Settings settings;
    Surface surface;
    int32_t rendered = -1;
    int32_t length = 0; // of the searched text
    int32_t options = 0;

    std::string setting(const std::string& key) const {
        const auto found = settings.find(key);
        return found == settings.end() ? std::string() : found->second;
    }
    bool lies() const { return settings.count("lie") > 0; }
};

SlideDocument::SlideDocument(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}
SlideDocument::~SlideDocument() = default;

int32_t SlideDocument::open(Office&, const std::string& path, const std::string& /*temporaryDirectory*/,
                            std::unique_ptr<SlideDocument>& document) {
    auto d = std::make_unique<Private>();
    d->settings = fake::readSettings(path);
    if (d->settings.empty()) {
        return MODULE_DAMAGED;
    }
    if (d->settings.count("password") > 0) {
        return MODULE_NEEDS_PASSWORD;
    }
    document.reset(new SlideDocument(std::move(d)));
    return MODULE_OK;
}

int32_t SlideDocument::openAny(Office& office, const AnyFile& file,
                               std::unique_ptr<SlideDocument>& document) {
    fake::Settings settings = fake::readSettings(file.path);
    if (settings.count("password") == 0) {
        return open(office, file.path, file.temporaryDirectory, document);
    }
    if (settings["password"] != file.password) {
        return file.password.empty() ? MODULE_NEEDS_PASSWORD : MODULE_WRONG_PASSWORD;
    }
    auto d = std::make_unique<Private>();
    d->settings = std::move(settings);
    document.reset(new SlideDocument(std::move(d)));
    return MODULE_OK;
}

int32_t SlideDocument::setSurface(uint32_t* pixels, int32_t width, int32_t height) {
    mPrivate->surface = {pixels, width, height};
    return MODULE_OK;
}

int32_t SlideDocument::render(int32_t slide) {
    if (const int32_t result = fake::misbehave(mPrivate->setting("render")); result != MODULE_OK) {
        return result;
    }
    if (const int32_t result = whenSlide(slide); result != MODULE_OK) {
        return result;
    }
    const Surface& surface = mPrivate->surface;
    for (int32_t y = 0; y < surface.height; y++) {
        std::fill_n(surface.row(y), surface.width,
                    0xFF000000U + static_cast<uint32_t>(slide) * 0x10000U + static_cast<uint32_t>(y));
    }
    mPrivate->rendered = slide;
    return MODULE_OK;
}

bool SlideDocument::prepareNext() {
    return false;
}

int32_t SlideDocument::slideCount(int32_t& count) {
    count = mPrivate->lies() ? std::numeric_limits<int32_t>::max() : SLIDES;
    return MODULE_OK;
}

int32_t SlideDocument::dimensions(int32_t slide, int32_t& width, int32_t& height) {
    width = mPrivate->lies() ? -720 : 720;
    height = 540;
    return whenSlide(slide);
}

int32_t SlideDocument::title(int32_t slide, std::u16string& text) {
    text = u"Title ";
    text += static_cast<char16_t>(u'0' + slide % 10);
    return whenSlide(slide);
}

int32_t SlideDocument::note(int32_t slide, std::u16string& text) {
    text = slide == 1 ? u"Remember" : u"";
    return whenSlide(slide);
}

int32_t SlideDocument::outline(int32_t slide, std::vector<OutlineItem>& items) {
    if (slide == 1) {
        items = {{u"Title 1", 0}, {u"first", 1}, {u"", 2}};
    }
    return whenSlide(slide);
}

int32_t SlideDocument::setHighlightColor(const Colour&) {
    return MODULE_OK;
}

int32_t SlideDocument::find(const std::u16string& text, int32_t first, int32_t last,
                            std::vector<SlideHits>& slides) {
    if (const int32_t result = fake::misbehave(mPrivate->setting("find")); result != MODULE_OK) {
        return result;
    }
    if (first > last || whenSlide(first) != MODULE_OK || whenSlide(last) != MODULE_OK) {
        return MODULE_BAD_ARGUMENT;
    }
    mPrivate->length = static_cast<int32_t>(text.size());
    if (!text.empty() && first == 0) {
        slides.push_back({0, 1, 0});
    }
    if (!text.empty() && first <= 1 && last >= 1) {
        slides.push_back({1, mPrivate->length, mPrivate->options == 0 ? 1 : 0});
    }
    return MODULE_OK;
}

int32_t SlideDocument::foundRegions(std::vector<std::vector<PixelRect>>& regions) {
    const int32_t hits = mPrivate->rendered == 0   ? std::min(mPrivate->length, 1)
                         : mPrivate->rendered == 1 ? mPrivate->length
                                                   : 0;
    for (int32_t hit = 0; hit < hits; hit++) {
        const PixelRect first{10 * hit, 20 * hit, 10, 20};
        const PixelRect second{0, 20 * hit + 20, 5, 20};
        regions.push_back(mPrivate->lies() ? std::vector<PixelRect>() : std::vector{first, second});
    }
    return MODULE_OK;
}

int32_t SlideDocument::foundNoteOffsets(int32_t slide, std::vector<int32_t>& offsets) {
    if (slide == 1 && mPrivate->length > 0) {
        offsets = {3};
    }
    return whenSlide(slide);
}

int32_t SlideDocument::setFindOptions(int32_t flags) {
    mPrivate->options = flags;
    return MODULE_OK;
}

int32_t SlideDocument::link(int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height,
                            int32_t& target, std::u16string& address) {
    if (whenSlide(slide) != MODULE_OK || width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    target = mPrivate->lies() ? std::numeric_limits<int32_t>::min() : y < height / 2 ? 2 : -1;
    address = target < 0 ? u"https://a.example" : u"";
    return x < width / 2 ? MODULE_OK : MODULE_NOTHING_THERE;
}

int32_t SlideDocument::shapeArea(int32_t slide, int32_t x, int32_t /*y*/, int32_t width, int32_t height,
                                 PixelRect& area) {
    area = {0, 0, width / 2, height};
    return x < width / 2 ? whenSlide(slide) : static_cast<int32_t>(MODULE_NOTHING_THERE);
}

int32_t SlideDocument::textLines(int32_t slide, int32_t width, int32_t height,
                                 std::vector<SlideLine>& lines) {
    const PixelRect half{0, 0, width / 2, height};
    lines = {{u"ab", {half, half}, 0}, {u"c", {half}, 1}};
    if (mPrivate->lies()) {
        lines.front().places.pop_back();
    }
    return whenSlide(slide);
}

int32_t SlideDocument::stopFind() {
    mPrivate->length = 0;
    return MODULE_OK;
}

int32_t SlideDocument::information(DocumentInformation& information) {
    const std::string name = mPrivate->setting("name");
    information = {{name.begin(), name.end()}, u"Author", u"Description", 1000, 2000};
    return MODULE_OK;
}

int32_t SlideDocument::releaseMemory() {
    return MODULE_OK;
}

} // namespace lectern::engine
