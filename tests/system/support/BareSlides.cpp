// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/BareSlides.h"

#include "tests/system/support/Subprocess.h"

#include <cstring>
#include <stdexcept>

BareSlides::BareSlides(const std::string& path, int width, int height, int pointsAcross, int pointsDown)
    : mWidth(width), mHeight(height) {
    constexpr int TWIPS = 20; // per point
    const TemporaryFolder folder;
    Subprocess program({BARE_SLIDES_PROGRAM, path, std::to_string(width), std::to_string(height),
                        std::to_string(pointsAcross * TWIPS), std::to_string(pointsDown * TWIPS),
                        folder.path()},
                       {}, folder.path() + "/program");
    if (program.wait(std::chrono::seconds(120)) != std::optional<int>(0)) {
        throw std::runtime_error("the suite cannot paint " + path + program.errors());
    }
    mPixels = readFile(folder.path() + "/pixels");
}

uint32_t BareSlides::colour(int slide, int x, int y) const {
    const size_t pixel =
        (static_cast<size_t>(slide) * static_cast<size_t>(mHeight) + static_cast<size_t>(y)) *
            static_cast<size_t>(mWidth) +
        static_cast<size_t>(x);
    uint32_t value = 0;
    std::memcpy(&value, &mPixels.at(pixel * sizeof value), sizeof value);
    return value & 0xFFFFFF;
}
