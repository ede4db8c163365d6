// SPDX-License-Identifier: Apache-2.0
// The control side of the fake presentation module, for tests in the same
// process.
//
// The fake is a real SlideshowToGoModule.so. Each pixel that it renders encodes
// its slide and its position on the surface: see fakeSlidePixel(). Hits are
// placed in slide units and reported in pixels of the last rendering.
#pragma once

#include "modules/SlideshowToGoModule.h"
#include "tests/fakes/module/FakeCalls.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A hit: one rectangle for each line it spans, in slide units.
using FakeSlideHit = std::vector<module_rect>;

// What the optional functions tell of a slide, with rectangles in slide units. The units of
// a line share its width.
struct FakeSlideLink {
    module_rect area{};
    int32_t target = -1;
    std::u16string address = {};
};
struct FakeSlideLine {
    std::u16string text;
    module_rect area{};
    int32_t paragraph = 0;
};

struct FakeSlide {
    std::u16string title = u"Slide";
    std::optional<std::u16string> note = std::nullopt;
    std::vector<FakeSlideHit> hits = {}; // found by every search
    int32_t noteHits = 0;
    std::vector<FakeSlideLink> links = {};
    std::vector<module_rect> shapes = {};
    std::vector<FakeSlideLine> lines = {};
};

struct FakeSlideControl : FakeControl<FakeSlideControl> {
    // The open of a file named "code-N..." returns N.
    std::vector<FakeSlide> slides = {FakeSlide()};
    int32_t width = 640; // of every slide
    int32_t height = 480;

    // Falsify the count or the address of the next arrays.
    std::optional<int32_t> arrayCount;
    bool nullArrays = false;
    // Replaces the infos of `slides`.
    std::optional<std::vector<sstg_find_info>> infos;

    // The module's state.
};

// Of the module that this is compiled into.
extern "C" LECTERN_MODULE_EXPORT FakeSlideControl* fake_slide_control();

// Pixel values: the slide in the highest byte, which tints leave unchanged,
// then x and y modulo 4096 in pixels of the surface.
constexpr uint32_t fakeSlidePixel(int32_t slide, int32_t x, int32_t y) {
    return (static_cast<uint32_t>(slide + 1) & 0xFF) << 24 | (static_cast<uint32_t>(x) & 0xFFF) << 12 |
           (static_cast<uint32_t>(y) & 0xFFF);
}

inline FakeSlideControl& fakeSlides() {
    static FakeSlideControl& control =
        fakeControl<FakeSlideControl>("SlideshowToGoModule.so", "fake_slide_control");
    return control;
}
