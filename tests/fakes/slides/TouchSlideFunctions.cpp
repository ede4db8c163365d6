// SPDX-License-Identifier: Apache-2.0
// The optional functions of the fake presentation module.
#include "modules/TouchSlideFunctions.h"

#include "tests/fakes/module/FakeModule.h"
#include "tests/fakes/slides/FakeSlideModule.h"

#include <algorithm>

namespace {

using fake::entered;

const FakeSlide* slideAt(int32_t slide) {
    const auto& slides = fake_slide_control()->slides;
    return slide >= 0 && static_cast<size_t>(slide) < slides.size() ? &slides[static_cast<size_t>(slide)]
                                                                    : nullptr;
}

// A rectangle of the slide on a picture of it.
module_rect onPicture(const module_rect& r, int32_t width, int32_t height) {
    const auto x = [=](int32_t units) {
        return static_cast<int32_t>(int64_t{units} * width / fake_slide_control()->width);
    };
    const auto y = [=](int32_t units) {
        return static_cast<int32_t>(int64_t{units} * height / fake_slide_control()->height);
    };
    return {x(r.x), y(r.y), x(r.x + r.width) - x(r.x), y(r.y + r.height) - y(r.y)};
}

bool contains(const module_rect& r, int32_t x, int32_t y) {
    return x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
}

// The lines that were returned last; they stay valid until the next.
struct Lines {
    std::vector<FakeSlideLine> texts;
    std::vector<std::vector<module_rect>> places;
    std::vector<sstg_text_line> lines;
};

std::vector<module_rect> placesOf(const FakeSlideLine& line, int32_t width, int32_t height) {
    std::vector<module_rect> places;
    const auto units = static_cast<int32_t>(line.text.size());
    for (int32_t i = 0; i < units; ++i) {
        const int32_t from = line.area.x + line.area.width * i / units;
        const int32_t to = line.area.x + line.area.width * (i + 1) / units;
        places.push_back(onPicture({from, line.area.y, to - from, line.area.height}, width, height));
    }
    return places;
}

} // namespace

int32_t sstg_set_find_options(void* doc, int32_t flags) {
    return entered(doc, __func__, flags);
}

int32_t sstg_get_link(void* doc, int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height,
                      int32_t* target, uint16_t* address, int32_t capacity, int32_t* length) {
    if (const int32_t code = entered(doc, __func__, slide, x, y, width, height)) {
        return code;
    }
    const FakeSlide* shown = slideAt(slide);
    for (const FakeSlideLink& link : shown != nullptr ? shown->links : std::vector<FakeSlideLink>()) {
        if (contains(onPicture(link.area, width, height), x, y)) {
            *target = link.target;
            return fake::giveText(link.address, address, capacity, length);
        }
    }
    return MODULE_NOTHING_THERE;
}

int32_t sstg_get_shape_area(void* doc, int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height,
                            module_rect* area) {
    if (const int32_t code = entered(doc, __func__, slide, x, y, width, height)) {
        return code;
    }
    const FakeSlide* shown = slideAt(slide);
    for (const module_rect& shape : shown != nullptr ? shown->shapes : std::vector<module_rect>()) {
        if (contains(onPicture(shape, width, height), x, y)) {
            *area = onPicture(shape, width, height);
            return MODULE_OK;
        }
    }
    return MODULE_NOTHING_THERE;
}

int32_t sstg_get_text_lines(void* doc, int32_t slide, int32_t width, int32_t height, int32_t* count,
                            const sstg_text_line** lines) {
    *count = 0;
    *lines = nullptr;
    if (const int32_t code = entered(doc, __func__, slide, width, height)) {
        return code;
    }
    const FakeSlide* shown = slideAt(slide);
    if (shown == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    static Lines last;
    last = Lines();
    last.texts = shown->lines;
    for (const FakeSlideLine& line : last.texts) {
        last.places.push_back(placesOf(line, width, height));
        last.lines.push_back({reinterpret_cast<const uint16_t*>(line.text.data()), last.places.back().data(),
                              static_cast<int32_t>(line.text.size()), line.paragraph});
    }
    return fake::giveArray(*fake_slide_control(), last.lines, lines, count);
}
