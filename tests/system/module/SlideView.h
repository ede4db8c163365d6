// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/process/engine/SlideHost.h"
#include "tests/system/support/Decks.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::test {

using Pixels = std::vector<std::uint32_t>;
using SlideRegion = std::vector<module_rect>;

// A presentation opened with the real engine through the module. Every call
// must succeed.
class SlideView {
public:
    explicit SlideView(const std::string& path);

    void* get() const { return mSlideshow.get(); }
    std::int32_t count() const;
    std::string title(std::int32_t slide) const;
    // Empty when the slide has no note.
    std::string note(std::int32_t slide) const;
    Pixels render(std::int32_t slide, std::int32_t width, std::int32_t height) const;
    // The hits on all slides.
    std::vector<sstg_find_info> find(const std::string& text) const;
    std::vector<SlideRegion> regions() const;

private:
    Slideshow mSlideshow;
};

} // namespace lectern::test
