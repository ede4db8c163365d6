// SPDX-License-Identifier: Apache-2.0
// Links, figures and lines of text, for views with touch manners.
#include "engine/office/slide/SlideDocumentPrivate.h"
#include "engine/office/slide/SlideLinks.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lectern::engine {

namespace {

// A picture of a slide, and how its pixels and the slide's 1/100 mm belong together.
class Picture {
public:
    Picture(const css::awt::Size& slide, int32_t width, int32_t height)
        : mAcross(static_cast<double>(width) / slide.Width),
          mDown(static_cast<double>(height) / slide.Height) {}

    // The middle of a pixel.
    css::awt::Point onSlide(int32_t x, int32_t y) const {
        return {rounded((x + 0.5) / mAcross), rounded((y + 0.5) / mDown)};
    }
    // All pixels that a box touches.
    PixelRect touched(const DrawnBox& box) const {
        const int32_t x = rounded(std::floor(box.left * mAcross));
        const int32_t y = rounded(std::floor(box.top * mDown));
        return {x, y, std::max(1, rounded(std::ceil(box.right * mAcross)) - x),
                std::max(1, rounded(std::ceil(box.bottom * mDown)) - y)};
    }

private:
    // Numbers in files may be anything.
    static int32_t rounded(double value) {
        constexpr double MOST = 1 << 29;
        return static_cast<int32_t>(std::lround(std::clamp(value, -MOST, MOST)));
    }

    double mAcross;
    double mDown;
};

bool contains(const DrawnBox& box, const css::awt::Point& point) {
    return point.X >= box.left && point.X < box.right && point.Y >= box.top && point.Y < box.bottom;
}

const DrawnLink* linkAt(const DrawnText& text, const css::awt::Point& point) {
    const auto isAt = [&](const DrawnLink& link) {
        const std::vector<DrawnBox> boxes = text.boxes(link.characters);
        return std::any_of(boxes.begin(), boxes.end(),
                           [&](const DrawnBox& box) { return contains(box, point); });
    };
    const auto link = std::find_if(text.links.begin(), text.links.end(), isAt);
    return link != text.links.end() ? &*link : nullptr;
}

SlideLine lineOf(const DrawnText& text, const DrawnLine& line, const Picture& picture) {
    const auto [start, end] = line.characters;
    SlideLine told{text.text.substr(start, end - start), {}, line.paragraph};
    for (uint32_t unit = start; unit < end; ++unit) {
        const std::vector<DrawnBox> boxes = text.boxes({unit, unit + 1});
        told.places.push_back(boxes.empty() ? PixelRect{} : picture.touched(boxes.front()));
    }
    return told;
}

} // namespace

int32_t SlideDocument::link(int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height,
                            int32_t& target, std::u16string& address) {
    return guardedInOffice([&]() -> int32_t {
        if (slide < 0 || slide >= mPrivate->deck.count() || width < 1 || height < 1) {
            return MODULE_BAD_ARGUMENT;
        }
        const css::awt::Point point = Picture(mPrivate->deck.size(slide), width, height).onSlide(x, y);
        const DrawnLink* link = linkAt(mPrivate->drawnText(slide), point);
        const auto found = link != nullptr ? targetOfAddress(mPrivate->deck, slide, link->address)
                                           : targetOfShapeAt(mPrivate->deck, slide, point);
        if (!found) {
            return MODULE_NOTHING_THERE;
        }
        target = found->slide.value_or(-1);
        address = found->address;
        return MODULE_OK;
    });
}

int32_t SlideDocument::shapeArea(int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height,
                                 PixelRect& area) {
    return guardedInOffice([&]() -> int32_t {
        if (!mPrivate->deck.has(slide) || width < 1 || height < 1) {
            return MODULE_BAD_ARGUMENT;
        }
        const Picture picture(mPrivate->deck.size(slide), width, height);
        const auto figure = figureAt(mPrivate->deck, slide, picture.onSlide(x, y));
        if (!figure) {
            return MODULE_NOTHING_THERE;
        }
        area = picture.touched({static_cast<double>(figure->X), static_cast<double>(figure->Y),
                                static_cast<double>(figure->X) + figure->Width,
                                static_cast<double>(figure->Y) + figure->Height});
        return MODULE_OK;
    });
}

int32_t SlideDocument::textLines(int32_t slide, int32_t width, int32_t height,
                                 std::vector<SlideLine>& lines) {
    return guardedInOffice([&]() -> int32_t {
        if (slide < 0 || slide >= mPrivate->deck.count() || width < 1 || height < 1) {
            return MODULE_BAD_ARGUMENT;
        }
        const Picture picture(mPrivate->deck.size(slide), width, height);
        const DrawnText& text = mPrivate->drawnText(slide);
        for (const DrawnLine& line : text.lines()) {
            lines.push_back(lineOf(text, line, picture));
        }
        return MODULE_OK;
    });
}

} // namespace lectern::engine
