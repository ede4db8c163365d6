// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewFrames.h"

#include "client/gtk4/FrameBands.h"

#include <gtest/gtest.h>

#include <vector>

using namespace lectern::gtk4;
using lectern::GLibHolder;

namespace {

constexpr Size SIZE{3, 2 * FrameBands::ROWS + 5};
constexpr LecternRectangle ALL{0, 0, SIZE.width, SIZE.height};

GBytes* frameOf(uint32_t colour) {
    const std::vector<uint32_t> pixels(static_cast<size_t>(SIZE.width * SIZE.height), colour);
    return g_bytes_new(pixels.data(), pixels.size() * sizeof(uint32_t));
}

void update(ViewFrames& frames, uint32_t colour, const LecternRectangle& damage) {
    GBytes* frame = frameOf(colour);
    frames.update(frame, SIZE, damage);
    g_bytes_unref(frame);
}

// What a view draws: the textures from the top.
std::vector<GdkTexture*> drawn(const ViewFrames& frames) {
    GLibHolder<GtkSnapshot> snapshot(gtk_snapshot_new());
    frames.snapshot(snapshot.get(), PixelGrid(1));
    GskRenderNode* node = gtk_snapshot_to_node(snapshot.get());
    std::vector<GdkTexture*> textures;
    for (guint i = 0; i < gsk_container_node_get_n_children(node); ++i) {
        textures.push_back(gsk_texture_node_get_texture(gsk_container_node_get_child(node, i)));
    }
    gsk_render_node_unref(node);
    return textures;
}

uint32_t firstPixel(GdkTexture* texture) {
    std::vector<uint32_t> pixels(static_cast<size_t>(SIZE.width * FrameBands::ROWS));
    gdk_texture_download(texture, reinterpret_cast<guchar*>(pixels.data()), SIZE.width * sizeof(uint32_t));
    return pixels.front();
}

struct ViewFramesTest : testing::Test {
    // Makes the types of render nodes; without a display, nothing else.
    static void SetUpTestSuite() { gtk_init_check(); }
};

} // namespace

TEST_F(ViewFramesTest, CopyOnlyTheBandsThatHaveChanged) {
    ViewFrames frames;
    update(frames, 0xFF112233, ALL);
    const std::vector<GdkTexture*> before = drawn(frames);
    ASSERT_EQ(before.size(), 3u);
    update(frames, 0xFF445566, {1, FrameBands::ROWS + 3, 1, 2});
    const std::vector<GdkTexture*> after = drawn(frames);
    EXPECT_EQ(after[0], before[0]);
    EXPECT_EQ(firstPixel(after[1]), 0xFF445566);
    EXPECT_EQ(after[2], before[2]);
}

TEST_F(ViewFramesTest, DrawTheColoursOfTheFrame) {
    ViewFrames frames;
    update(frames, 0xFF102030, ALL);
    for (GdkTexture* texture : drawn(frames)) {
        EXPECT_EQ(firstPixel(texture), 0xFF102030);
    }
}

TEST_F(ViewFramesTest, AreCopiesThatTheNextPaintDoesNotChange) {
    std::vector<uint32_t> pixels(static_cast<size_t>(SIZE.width * SIZE.height), 0xFF102030);
    GBytes* frame = g_bytes_new_static(pixels.data(), pixels.size() * sizeof(uint32_t));
    ViewFrames frames;
    frames.update(frame, SIZE, ALL);
    pixels.assign(pixels.size(), 0xFFFFFFFF);
    EXPECT_EQ(firstPixel(drawn(frames)[0]), 0xFF102030);
    g_bytes_unref(frame);
}

TEST_F(ViewFramesTest, TakeNothingFromAFrameThatIsTooSmall) {
    ViewFrames frames;
    GBytes* frame = g_bytes_new_static("1234", 4);
    frames.update(frame, SIZE, ALL);
    g_bytes_unref(frame);
    EXPECT_TRUE(frames.isEmpty());
}
