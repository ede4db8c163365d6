// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/HeaderPainter.h"

#include "engine/layout/Tint.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace lectern::engine {

namespace {

constexpr double FONT_POINTS = 9;
constexpr double PADDING_POINTS = 4;
constexpr double POINTS_PER_INCH = 72;
constexpr uint32_t BACKGROUND = 0xFFCCCCCC;
constexpr uint32_t LINE = 0xFF8C8C8C;

using CairoSurface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Cairo = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

// A header strip along its tracks, vertical or horizontal.
struct Strip {
    Axis axis;
    const Surface& surface;

    bool isRows() const { return axis == Axis::Rows; }
    int32_t length() const { return isRows() ? surface.height : surface.width; }
    int32_t thickness() const { return isRows() ? surface.width : surface.height; }
    void fill(int64_t first, int64_t last, int64_t from, int64_t to, uint32_t colour) const {
        if (isRows()) {
            lectern::engine::fill(surface, from, first, to, last, colour);
        } else {
            lectern::engine::fill(surface, first, from, last, to, colour);
        }
    }
};

// Calls use(track, first pixel, end pixel) for each track that the strip shows.
template<class Use>
void forTracks(const Tracks& tracks, int64_t from, int32_t length, Use use) {
    const int64_t end = std::min(from + length, tracks.total());
    for (int64_t pixel = std::max<int64_t>(from, 0); pixel < end;) {
        const int32_t track = tracks.trackAt(pixel);
        const int64_t next = tracks.position(track + 1);
        use(track, tracks.position(track) - from, next - from);
        pixel = next;
    }
}

} // namespace

HeaderPainter::HeaderPainter(int32_t dpi)
    : mFont(nullptr, &cairo_scaled_font_destroy), mPadding(PADDING_POINTS * dpi / POINTS_PER_INCH) {
    const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1), &cairo_surface_destroy);
    const Cairo cairo(cairo_create(surface.get()), &cairo_destroy);
    cairo_select_font_face(cairo.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo.get(), FONT_POINTS * dpi / POINTS_PER_INCH);
    mFont.reset(cairo_scaled_font_reference(cairo_get_scaled_font(cairo.get())));
    cairo_font_extents_t font{};
    cairo_scaled_font_extents(mFont.get(), &font);
    mAscent = font.ascent;
    mDescent = font.descent;
    mDigit = 0;
    for (char digit = '0'; digit <= '9'; ++digit) {
        const char text[] = {digit, '\0'};
        cairo_text_extents_t extents{};
        cairo_scaled_font_text_extents(mFont.get(), text, &extents);
        mDigit = std::max(mDigit, extents.x_advance);
    }
}

int32_t HeaderPainter::rowHeaderWidth(int32_t rows) const {
    const auto digits = static_cast<double>(std::to_string(rows).size());
    return static_cast<int32_t>(std::ceil(digits * mDigit + 2 * mPadding)) + 1;
}

int32_t HeaderPainter::columnHeaderHeight() const {
    return static_cast<int32_t>(std::ceil(mAscent + mDescent + mPadding)) + 1;
}

void HeaderPainter::paint(Axis axis, const Tracks& tracks, int64_t from,
                          const std::optional<MarkedTracks>& marked, const Surface& surface) const {
    const Strip strip{axis, surface};
    strip.fill(0, strip.length(), 0, strip.thickness(), BACKGROUND);
    forTracks(tracks, from, strip.length(), [&](int32_t track, int64_t first, int64_t last) {
        if (marked && track >= marked->first && track <= marked->last) {
            strip.fill(first, last, 0, strip.thickness(), tinted(BACKGROUND, marked->colour));
        }
        if (from + first > 0) {
            strip.fill(first, first + 1, 0, strip.thickness(), LINE);
        }
    });
    const int32_t inner = strip.thickness() - 1;
    strip.fill(0, strip.length(), inner, strip.thickness(), LINE);

    const CairoSurface image(
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(surface.pixels),
                                            CAIRO_FORMAT_ARGB32, surface.width, surface.height,
                                            surface.width * static_cast<int>(sizeof(uint32_t))),
        &cairo_surface_destroy);
    const Cairo cairo(cairo_create(image.get()), &cairo_destroy);
    cairo_set_scaled_font(cairo.get(), mFont.get());
    forTracks(tracks, from, strip.length(), [&](int32_t track, int64_t first, int64_t last) {
        const std::string label = strip.isRows() ? std::to_string(track + 1) : columnLabel(track);
        const auto room = static_cast<double>(last - first - 1);
        const auto begin = static_cast<double>(first + 1);
        const double width = strip.isRows() ? inner : room;
        const double height = strip.isRows() ? room : inner;
        cairo_text_extents_t extents{};
        cairo_text_extents(cairo.get(), label.c_str(), &extents);
        cairo_save(cairo.get());
        cairo_translate(cairo.get(), strip.isRows() ? 0 : begin, strip.isRows() ? begin : 0);
        cairo_rectangle(cairo.get(), 0, 0, width, height);
        cairo_clip(cairo.get());
        cairo_move_to(cairo.get(), std::floor((width - extents.x_advance) / 2),
                      std::floor((height - mAscent - mDescent) / 2 + mAscent));
        cairo_show_text(cairo.get(), label.c_str());
        cairo_restore(cairo.get());
    });
}

std::string columnLabel(int32_t column) {
    constexpr int32_t LETTERS = 26;
    std::string label;
    for (int32_t rest = column + 1; rest > 0; rest = (rest - 1) / LETTERS) {
        label.insert(label.begin(), static_cast<char>('A' + (rest - 1) % LETTERS));
    }
    return label;
}

} // namespace lectern::engine
