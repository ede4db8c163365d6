// SPDX-License-Identifier: Apache-2.0
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"

#include <algorithm>

namespace lectern::engine::test {

namespace {

class Fitting : public OfficeTest {};

// Border lines between two columns of pixels are grey.
bool isDark(uint32_t pixel) {
    return (pixel & 0xFF) < 0xA0;
}

// The columns and rows that contain dark pixels.
struct Extent {
    int32_t first = -1;
    int32_t last = -1;
    int32_t rows = 0;
};

Extent darkExtent(const View& view) {
    Extent extent;
    for (int32_t y = 0; y < view.height(); ++y) {
        bool any = false;
        for (int32_t x = 0; x < view.width(); ++x) {
            if (!isDark(view.at(x, y))) {
                continue;
            }
            extent.first = extent.first < 0 ? x : std::min(extent.first, x);
            extent.last = std::max(extent.last, x);
            any = true;
        }
        extent.rows += any ? 1 : 0;
    }
    return extent;
}

} // namespace

TEST_F(Fitting, AWideTableIsScaledToTheText) {
    const auto shown = view(DocxBuilder().table(4, 4000, "cell").write("wide.docx"), 320, 200);
    EXPECT_GT(shown->usedRows(), 10);
    const Extent ink = darkExtent(*shown);
    EXPECT_GT(ink.last, 310) << "the right border is there";
    EXPECT_LT(ink.last, 319);
    EXPECT_EQ(shown->ink(319, 320), 0);
    shown->resize(640, 200, 72);
    shown->rows();
    EXPECT_GT(darkExtent(*shown).last, 630);
    EXPECT_LT(darkExtent(*shown).last, 639);
}

TEST_F(Fitting, ABigPictureIsScaledAndKeepsItsProportions) {
    const auto shown = view(DocxBuilder().picture(10, 5).write("big.docx"), 320, 400);
    shown->rows();
    const Extent ink = darkExtent(*shown);
    EXPECT_LT(ink.first, 8);
    EXPECT_GT(ink.last, 310);
    EXPECT_LT(ink.last, 319);
    EXPECT_NEAR(ink.rows, (ink.last - ink.first + 1) / 2, 3);
}

TEST_F(Fitting, APictureThatFitsKeepsItsSizeAgainAfterANarrowLayout) {
    const auto shown = view(DocxBuilder().picture(4, 1).write("small.docx"), 480, 300);
    shown->rows();
    EXPECT_NEAR(darkExtent(*shown).rows, 72, 2);
    shown->resize(150, 300, 72);
    shown->rows();
    EXPECT_LT(darkExtent(*shown).last, 149);
    EXPECT_NEAR(darkExtent(*shown).rows, 35, 2);
    shown->resize(480, 300, 72);
    shown->rows();
    EXPECT_NEAR(darkExtent(*shown).rows, 72, 2);
    EXPECT_NEAR(darkExtent(*shown).last - darkExtent(*shown).first, 288, 3);
}

TEST_F(Fitting, AFloatingPictureCoversNoText) {
    DocxBuilder builder;
    builder.paragraph("text before").picture(2, 2, false).paragraph("text behind");
    const auto shown = view(builder.write("floating.docx"), 320, 300);
    EXPECT_GT(shown->rows(), 144 + 2 * 10);
    EXPECT_GE(darkExtent(*shown).rows, 143);
    DocxBuilder textOnly;
    const auto text = view(
        textOnly.paragraph("text before").paragraph("").paragraph("text behind").write("t.docx"), 320, 300);
    EXPECT_LT(text->rows(), 80);
    EXPECT_EQ(shown->count(), text->count());
    EXPECT_GT(shown->ink(), text->ink() + 143 * 143);
}

TEST_F(Fitting, LargeIndentsTakeHalfOfANarrowLineAtMost) {
    const std::string text = std::string("word ") + "another word and another word and so on for a few lines";
    DocxBuilder builder;
    builder.paragraph(text, "<w:ind w:left=\"4000\" w:right=\"1000\"/>");
    const auto shown = view(builder.write("indented.docx"), 320, 400);
    const int32_t narrow = shown->rows();
    const Extent ink = darkExtent(*shown);
    EXPECT_NEAR(ink.first, 4 + 160 * 4 / 5, 4) << "the indents keep their proportion";
    EXPECT_GT(ink.last, 250);
    // Shapes that fit have their original size, also after a narrow layout.
    shown->resize(800, 400, 72);
    shown->rows();
    EXPECT_NEAR(darkExtent(*shown).first, 4 + 200, 3);
    shown->resize(320, 400, 72);
    EXPECT_EQ(shown->rows(), narrow);
}

TEST_F(Fitting, ADocumentOfPicturesAloneIsScrolledToItsEnd) {
    const auto shown = view(DocxBuilder().picture(4, 10).write("tall.docx"), 320, 300);
    EXPECT_EQ(shown->count(), 1U);
    EXPECT_EQ(shown->bottomRight(), 0U);
    shown->scrollDown(200);
    EXPECT_EQ(shown->topLeft(), 1U);
    EXPECT_EQ(shown->bottomRight(), 0U);
    shown->scrollDown(shown->rows() - 500);
    EXPECT_EQ(shown->bottomRight(), 1U);
}

} // namespace lectern::engine::test
