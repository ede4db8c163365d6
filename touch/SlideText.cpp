// SPDX-License-Identifier: Apache-2.0
#include "touch/SlideText.h"

#include <glib.h>

#include <algorithm>

namespace {

// A slide has less; what a module tells beyond that is ignored.
constexpr size_t MOST_UNITS = 1U << 20;

bool prvIsPairStart(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
bool prvIsPairEnd(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

bool prvIsInWord(char16_t unit) {
    return prvIsPairStart(unit) || prvIsPairEnd(unit) || unit == u'_' || g_unichar_isalnum(unit) != 0 ||
           g_unichar_ismark(unit) != 0;
}

// Half surrogate pairs become U+FFFD, which has no UTF-8 otherwise, and control
// characters spaces.
std::string prvUtf8(std::u16string text) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (prvIsPairStart(text[i]) && i + 1 < text.size() && prvIsPairEnd(text[i + 1])) {
            ++i;
        } else if (prvIsPairStart(text[i]) || prvIsPairEnd(text[i])) {
            text[i] = u'\uFFFD';
        } else if (text[i] < u' ' && text[i] != u'\n') {
            text[i] = u' ';
        }
    }
    char* converted = g_utf16_to_utf8(reinterpret_cast<const gunichar2*>(text.data()),
                                      static_cast<glong>(text.size()), nullptr, nullptr, nullptr);
    std::string result = converted != nullptr ? converted : "";
    g_free(converted);
    return result;
}

CpRect prvAround(const CpRect& a, const CpRect& b) {
    if (a.Empty() || b.Empty()) {
        return a.Empty() ? b : a;
    }
    return {std::min(a.Left(), b.Left()), std::min(a.Top(), b.Top()), std::max(a.Right(), b.Right()),
            std::max(a.Bottom(), b.Bottom())};
}

long long prvOutside(int value, int low, int high) {
    return std::max({0LL, static_cast<long long>(low) - value, static_cast<long long>(value) - high + 1});
}

// The square of the distance; limited, so that sums do not overflow.
long long prvDistance(const CpPoint& point, const CpRect& r) {
    constexpr long long FAR = 1LL << 30;
    const long long x = std::min(FAR, prvOutside(point.x, r.Left(), r.Right()));
    const long long y = std::min(FAR, prvOutside(point.y, r.Top(), r.Bottom()));
    return x * x + y * y;
}

} // namespace

SlideText::SlideText(std::span<const sstg_text_line> lines) {
    for (const sstg_text_line& line : lines) {
        if (line.text != nullptr && line.places != nullptr && line.length > 0 &&
            static_cast<size_t>(line.length) <= MOST_UNITS - mText.size()) {
            add(line);
        }
    }
}

void SlideText::add(const sstg_text_line& line) {
    const auto start = static_cast<int>(mText.size());
    const auto length = static_cast<size_t>(line.length);
    mText.insert(mText.end(), line.text, line.text + length);
    for (const module_rect& place : std::span(line.places, length)) {
        mPlaces.emplace_back(place.x, place.y, saturatedSum(place.x, place.width),
                             saturatedSum(place.y, place.height));
    }
    const UnitRange units{start, start + line.length};
    mLines.push_back({units, placeOf(units), line.paragraph});
}

CpRect SlideText::placeOf(const UnitRange& range) const {
    CpRect place;
    for (int unit = range.start; unit < range.end; ++unit) {
        place = prvAround(place, mPlaces[static_cast<size_t>(unit)]);
    }
    return place;
}

SlideText::Nearest SlideText::nearestTo(const CpPoint& point) const {
    const Line* nearest = nullptr;
    Nearest found;
    for (const Line& line : mLines) {
        const long long distance = prvDistance(point, line.place);
        if (!line.place.Empty() && (nearest == nullptr || distance < found.distance)) {
            nearest = &line;
            found.distance = distance;
        }
    }
    long long best = 0;
    for (int unit = nearest != nullptr ? nearest->units.start : 0;
         nearest != nullptr && unit < nearest->units.end; ++unit) {
        const CpRect& place = mPlaces[static_cast<size_t>(unit)];
        const long long distance = prvDistance(point, place);
        if (!place.Empty() && (found.unit < 0 || distance < best)) {
            found.unit = unit;
            best = distance;
        }
    }
    return found;
}

const SlideText::Line* SlideText::lineOf(int unit) const {
    const auto line = std::find_if(mLines.begin(), mLines.end(), [=](const Line& candidate) {
        return unit >= candidate.units.start && unit < candidate.units.end;
    });
    return line != mLines.end() ? &*line : nullptr;
}

int SlideText::unitAt(const CpPoint& point) const {
    const Nearest nearest = nearestTo(point);
    const Line* line = lineOf(nearest.unit);
    if (line == nullptr) {
        return -1;
    }
    const long long reach = line->place.Height() / 2;
    return nearest.distance <= reach * reach ? nearest.unit : -1;
}

int SlideText::boundaryAt(const CpPoint& point) const {
    const Nearest nearest = nearestTo(point);
    const Line* line = lineOf(nearest.unit);
    if (line == nullptr) {
        return -1;
    }
    const CpRect& place = mPlaces[static_cast<size_t>(nearest.unit)];
    const CpRect& first = mPlaces[static_cast<size_t>(line->units.start)];
    const bool onTheRight = point.x >= place.Left() + place.Width() / 2;
    const bool rightToLeft = first.Left() > line->place.Left() + line->place.Width() / 2;
    int boundary = nearest.unit + (onTheRight != rightToLeft ? 1 : 0);
    if (boundary < all().end && prvIsPairEnd(mText[static_cast<size_t>(boundary)])) {
        ++boundary;
    }
    return boundary;
}

UnitRange SlideText::wordAt(int unit) const {
    const UnitRange line = lineAt(unit);
    const auto isInWord = [this](int i) { return prvIsInWord(mText[static_cast<size_t>(i)]); };
    UnitRange word{unit, unit};
    while (word.end < line.end && isInWord(word.end)) {
        ++word.end;
    }
    while (!word.isEmpty() && word.start > line.start && isInWord(word.start - 1)) {
        --word.start;
    }
    return word;
}

UnitRange SlideText::lineAt(int unit) const {
    const Line* line = lineOf(unit);
    return line != nullptr ? line->units : UnitRange();
}

std::string SlideText::textOf(const UnitRange& range) const {
    std::u16string text;
    int paragraph = 0;
    for (const Line& line : mLines) {
        const UnitRange part{std::max(range.start, line.units.start), std::min(range.end, line.units.end)};
        if (part.isEmpty()) {
            continue;
        }
        if (!text.empty() && line.paragraph != paragraph) {
            text += u'\n';
        }
        paragraph = line.paragraph;
        text.append(mText, static_cast<size_t>(part.start), static_cast<size_t>(part.end - part.start));
    }
    return prvUtf8(std::move(text));
}

std::vector<CpRect> SlideText::rectanglesOf(const UnitRange& range) const {
    std::vector<CpRect> rectangles;
    for (const Line& line : mLines) {
        const CpRect place =
            placeOf({std::max(range.start, line.units.start), std::min(range.end, line.units.end)});
        if (!place.Empty()) {
            rectangles.push_back(place);
        }
    }
    return rectangles;
}

bool SlideText::isBlank(const UnitRange& range) const {
    return std::all_of(mText.begin() + range.start, mText.begin() + range.end,
                       [](char16_t unit) { return unit < u' ' || g_unichar_isspace(unit) != 0; });
}

std::vector<TextLine> SlideText::linesIn(const CpRect& area) const {
    std::vector<TextLine> lines;
    for (const Line& line : mLines) {
        CpRect visible = line.place;
        visible.Intersect(area);
        if (!line.place.Empty() && !visible.Empty() && !isBlank(line.units)) {
            lines.push_back({textOf(line.units), line.place});
        }
    }
    return lines;
}
