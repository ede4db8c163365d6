// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/Tracks.h"

#include <gtest/gtest.h>

#include <string>

namespace lectern::engine::test {
namespace {

// Tracks 0 to 9 have 1285 twips, which are 85.67 pixels at 96 dpi, 10 to 19 have
// 258, which are 17.2; tracks 5 and 6 are hidden.
Tracks someTracks(int32_t dpi = 96, int32_t count = 20) {
    Tracks tracks("1285:9 258:19", "0:4 6 19");
    tracks.setDpi(dpi);
    tracks.setCount(count);
    return tracks;
}

Tracks oneTrack(int32_t twips, int32_t dpi) {
    Tracks tracks(std::to_string(twips) + ":0", "0:0");
    tracks.setDpi(dpi);
    tracks.setCount(1);
    return tracks;
}

TEST(TracksTest, PlacesAreSumsOfCutOffSizes) {
    const Tracks tracks = someTracks();
    EXPECT_EQ(tracks.position(0), 0);
    EXPECT_EQ(tracks.size(0), 85);
    EXPECT_EQ(tracks.position(4), 4 * 85);
    EXPECT_EQ(tracks.position(10), 8 * 85);
    EXPECT_EQ(tracks.total(), 8 * 85 + 10 * 17);
    const Tracks finer = someTracks(144);
    EXPECT_EQ(finer.size(0), 128);
    EXPECT_EQ(finer.total(), 8 * 128 + 10 * 25);
}

TEST(TracksTest, HiddenTracksHaveNoPixels) {
    const Tracks tracks = someTracks();
    EXPECT_EQ(tracks.size(5), 0);
    EXPECT_EQ(tracks.size(6), 0);
    EXPECT_EQ(tracks.position(7), tracks.position(5));
    EXPECT_FALSE(tracks.isHidden(4));
    EXPECT_TRUE(tracks.isHidden(5));
    EXPECT_FALSE(tracks.isHidden(7));
    EXPECT_EQ(tracks.visibleIn(0, 9), 8);
    EXPECT_EQ(tracks.visibleIn(5, 6), 0);
}

TEST(TracksTest, AVisibleTrackHasAPixelHoweverSmallItIs) {
    EXPECT_EQ(oneTrack(3, 96).total(), 1);
    EXPECT_EQ(oneTrack(0, 96).total(), 0);
}

TEST(TracksTest, APixelBelongsToAVisibleTrack) {
    const Tracks tracks = someTracks();
    EXPECT_EQ(tracks.trackAt(0), 0);
    EXPECT_EQ(tracks.trackAt(84), 0);
    EXPECT_EQ(tracks.trackAt(85), 1);
    EXPECT_EQ(tracks.trackAt(5 * 85 - 1), 4);
    EXPECT_EQ(tracks.trackAt(5 * 85), 7) << "5 and 6 are hidden";
}

TEST(TracksTest, APixelOutsideBelongsToTheFirstOrTheLastTrack) {
    const Tracks tracks = someTracks(96, 12);
    EXPECT_EQ(tracks.trackAt(-5), 0);
    EXPECT_EQ(tracks.trackAt(1'000'000), 11);
    EXPECT_EQ(Tracks("", "").trackAt(5), 0);
}

TEST(TracksTest, CountsAmongAllTracksThereAre) {
    const Tracks tracks = someTracks(96, 12);
    EXPECT_EQ(tracks.countUpTo(0), 0);
    EXPECT_EQ(tracks.countUpTo(1), 1);
    EXPECT_EQ(tracks.countUpTo(85), 1);
    EXPECT_EQ(tracks.countUpTo(86), 2);
    EXPECT_EQ(tracks.countUpTo(8 * 85 + 10 * 17), 20);
}

TEST(TracksTest, RangesWidenOverTheHiddenTracksBesideThem) {
    const Tracks tracks = someTracks();
    int32_t first = 7;
    EXPECT_TRUE(tracks.widenOverHiddenBefore(first));
    EXPECT_EQ(first, 5);
    EXPECT_FALSE(tracks.widenOverHiddenBefore(first));
    EXPECT_EQ(first, 5);
    int32_t last = 4;
    tracks.widenOverHiddenBehind(last);
    EXPECT_EQ(last, 6);
    last = 4;
    someTracks(96, 6).widenOverHiddenBehind(last);
    EXPECT_EQ(last, 5) << "not past the sheet's end";
}

TEST(TracksTest, DrawingsArePaintedOnThePixelsOfTheirTracks) {
    const Tracks tracks = someTracks();
    EXPECT_NEAR(tracks.paintedAt(0, 96), 0, 1e-9);
    EXPECT_NEAR(tracks.paintedAt(1285, 96), 85, 1e-9);
    EXPECT_NEAR(tracks.paintedAt(5 * 1285, 96), 5 * 85, 1e-9);
    EXPECT_NEAR(tracks.paintedAt(8 * 1285, 96), 8 * 85, 1e-9);
    EXPECT_NEAR(tracks.paintedAt(8 * 1285 + 2 * 258 + 129, 96), 8 * 85 + 2 * 17 + 8.5, 1e-9);
}

TEST(TracksTest, TilesThatBeginWithinATrackDisplaceDrawings) {
    const Tracks tracks = someTracks(144);
    EXPECT_NEAR(tracks.displacementAt(0, 144), 0, 1e-9);
    EXPECT_NEAR(tracks.displacementAt(128, 144), 0, 1e-9);
    EXPECT_NEAR(tracks.displacementAt(128 + 30, 144), 10, 1e-9);
    EXPECT_NEAR(someTracks(96).displacementAt(30, 96), 0, 1e-9);
    EXPECT_NEAR(someTracks(72).displacementAt(30, 72), -10, 1e-9);
}

TEST(TracksTest, TellsTheTwipsOfATrack) {
    EXPECT_EQ(someTracks().twips(9), 1285);
    EXPECT_EQ(someTracks().twips(10), 258);
}

TEST(TracksTest, TwipsForPixelsAreTheFewestThatGiveThem) {
    for (const int32_t dpi : {72, 96, 100, 144, 217, 300}) {
        for (int64_t pixels = 2; pixels < 400; ++pixels) {
            const int32_t twips = Tracks::twipsFor(pixels, dpi);
            ASSERT_EQ(oneTrack(twips, dpi).total(), pixels) << dpi;
            ASSERT_LT(oneTrack(twips - 1, dpi).total(), pixels) << dpi;
        }
    }
}

} // namespace
} // namespace lectern::engine::test
