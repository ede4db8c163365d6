// SPDX-License-Identifier: Apache-2.0
// The control side of the fake presentation module, for tests in the same process.
//
// The fake is a real SlideshowToGoModule.so. Each pixel it renders tells of which
// slide it is and where on the surface: see fakeSlidePixel(). Hits are placed in
// slide units and reported in the pixels of what was rendered last.
#pragma once

#include "modules/SlideshowToGoModule.h"
#include "tests/fakes/module/FakeCalls.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A hit: one rectangle for each line it spans, in slide units.
using FakeSlideHit = std::vector<module_rect>;

struct FakeSlide {
    std::u16string title = u"Slide";
    std::optional<std::u16string> note = std::nullopt;
    std::vector<FakeSlideHit> hits = {}; // that every search finds
    int32_t noteHits = 0;
};

struct FakeSlideControl : FakeControl<FakeSlideControl> {
    // A file named "code-N..." gives the open code N.
    std::vector<FakeSlide> slides = {FakeSlide()};
    int32_t width = 640; // of every slide
    int32_t height = 480;

    // Spoils the next arrays: their count, or their address.
    std::optional<int32_t> arrayCount;
    bool nullArrays = false;
    // In place of the infos of `slides`.
    std::optional<std::vector<sstg_find_info>> infos;

    // What the module knows.
};

// Pixels: the slide in the topmost byte, which fills over them leave as it is,
// then x and y modulo 4096 in the pixels of the surface.
constexpr uint32_t fakeSlidePixel(int32_t slide, int32_t x, int32_t y) {
    return (static_cast<uint32_t>(slide + 1) & 0xFF) << 24 | (static_cast<uint32_t>(x) & 0xFFF) << 12 |
           (static_cast<uint32_t>(y) & 0xFFF);
}

inline FakeSlideControl& fakeSlides() {
    static FakeSlideControl& control =
        fakeControl<FakeSlideControl>("SlideshowToGoModule.so", "fake_slide_control");
    return control;
}
