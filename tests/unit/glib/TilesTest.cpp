// SPDX-License-Identifier: Apache-2.0
#include "client/glib/Tiles.h"

#include <gtest/gtest.h>

namespace {

using lectern::Tiles;
using lectern::touch::Rectangle;

// A picture of three tiles across, the last one 22 pixels wide, and two down, the last
// one 36 pixels high.
class TilesTest : public testing::Test {
protected:
    static constexpr int WIDTH = 150;
    static constexpr int HEIGHT = 100;

    TilesTest() { update(); }
    Rectangle update() { return mTiles.update(mPixels.data(), WIDTH, HEIGHT); }
    void touch(int x, int y) { ++mPixels[static_cast<size_t>(y * WIDTH + x)]; }

    std::vector<uint32_t> mPixels = std::vector<uint32_t>(size_t{WIDTH} * HEIGHT);
    Tiles mTiles;
};

TEST_F(TilesTest, TheFirstPictureHasChangedAsAWhole) {
    Tiles tiles;
    EXPECT_EQ(tiles.update(mPixels.data(), WIDTH, HEIGHT), (Rectangle{0, 0, WIDTH, HEIGHT}));
}

TEST_F(TilesTest, TheSamePictureHasNotChanged) {
    EXPECT_EQ(update(), Rectangle());
}

TEST_F(TilesTest, OnePixelChangesItsTile) {
    touch(64, 63);
    EXPECT_EQ(update(), (Rectangle{64, 0, 64, 64}));
    EXPECT_EQ(update(), Rectangle());
}

TEST_F(TilesTest, TilesEndAtTheEdges) {
    touch(WIDTH - 1, HEIGHT - 1);
    EXPECT_EQ(update(), (Rectangle{128, 64, 22, 36}));
}

TEST_F(TilesTest, SeveralChangesAreCoveredByOneRectangle) {
    touch(0, 99);
    touch(100, 0);
    EXPECT_EQ(update(), (Rectangle{0, 0, 128, HEIGHT}));
}

TEST_F(TilesTest, APictureOfAnotherSizeHasChangedAsAWhole) {
    EXPECT_EQ(mTiles.update(mPixels.data(), HEIGHT, WIDTH), (Rectangle{0, 0, HEIGHT, WIDTH}));
}

TEST_F(TilesTest, AForgottenPictureHasChangedAsAWhole) {
    mTiles.clear();
    EXPECT_EQ(update(), (Rectangle{0, 0, WIDTH, HEIGHT}));
}

} // namespace
