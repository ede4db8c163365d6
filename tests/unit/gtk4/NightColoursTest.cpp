// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/NightColours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

using Colour = std::array<float, 3>;

Colour atNight(const Colour& colour) {
    const lectern::gtk4::ColourChange night = lectern::gtk4::nightColours();
    graphene_vec4_t value;
    graphene_vec4_init(&value, colour[0], colour[1], colour[2], 1);
    graphene_matrix_transform_vec4(&night.matrix, &value, &value);
    graphene_vec4_add(&value, &night.offset, &value);
    float parts[4];
    graphene_vec4_to_float(&value, parts);
    EXPECT_FLOAT_EQ(parts[3], 1);
    return {std::clamp(parts[0], 0.0f, 1.0f), std::clamp(parts[1], 0.0f, 1.0f),
            std::clamp(parts[2], 0.0f, 1.0f)};
}

float lightness(const Colour& colour) {
    return 0.2126f * colour[0] + 0.7152f * colour[1] + 0.0722f * colour[2];
}

} // namespace

TEST(NightColours, SwapBlackAndWhite) {
    for (const auto& [day, night] : {std::pair<float, float>{1, 0}, {0, 1}, {0.25f, 0.75f}}) {
        for (const float part : atNight({day, day, day})) {
            EXPECT_NEAR(part, night, 1e-5);
        }
    }
}

TEST(NightColours, InvertTheLightnessOfColoursAndKeepTheOrderOfTheirParts) {
    for (const Colour& day : {Colour{0.5f, 0.2f, 0.3f}, Colour{0.3f, 0.5f, 0.6f}, Colour{0.6f, 0.5f, 0.4f}}) {
        const Colour night = atNight(day);
        EXPECT_NEAR(lightness(night), 1 - lightness(day), 1e-5);
        EXPECT_NEAR(night[0] - night[1], day[0] - day[1], 1e-5);
        EXPECT_NEAR(night[1] - night[2], day[1] - day[2], 1e-5);
    }
}

TEST(NightColours, LeaveARedLetterRed) {
    const Colour night = atNight({0.6f, 0, 0});
    EXPECT_GT(night[0], night[1]);
    EXPECT_GT(night[0], night[2]);
}
