// SPDX-License-Identifier: Apache-2.0
// The fonts that texts are laid out with, told by their pixels.
#include "tests/system/module/ModuleView.h"

#include <algorithm>

namespace lectern::test {
namespace {

constexpr std::int32_t WIDTH = 480;
constexpr std::int32_t HEIGHT = 60;

using Pixels = std::vector<std::uint32_t>;

// A line of words in the font of this name; `options` as make_font_docx.py takes them.
Pixels lineIn(const std::string& font, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments{"OUT", font};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return ModuleView(generated("make_font_docx.py", arguments), WIDTH, HEIGHT).pixels();
}

TEST(Fonts, FreeFontsOfTheSameWidthsStandInForMissingOnes) {
    const std::pair<const char*, const char*> pairs[] = {
        {"Calibri", "Carlito"},
        {"Cambria", "Caladea"},
        {"Arial", "Liberation Sans"},
        {"Times New Roman", "Liberation Serif"},
        {"Helvetica", "Liberation Sans"},
        {"Courier New", "Liberation Mono"},
        {"Arial Narrow", "Liberation Sans Narrow"},
    };
    std::vector<Pixels> lines;
    for (const auto& [named, standIn] : pairs) {
        lines.push_back(lineIn(standIn));
        EXPECT_EQ(lineIn(named), lines.back()) << named << " looks like " << standIn;
    }
    std::sort(lines.begin(), lines.end());
    const auto different = std::unique(lines.begin(), lines.end()) - lines.begin();
    EXPECT_EQ(different, 6) << "each stand-in looks different; one stands for two fonts";
}

TEST(Fonts, SymbolsOfSymbolFontsAreDrawn) {
    const Pixels envelope = lineIn("Wingdings", {"U+F02A"});
    EXPECT_NE(envelope, lineIn("Wingdings", {"U+F028"})) << "a telephone";
    EXPECT_NE(envelope, lineIn("Unknown", {"U+F02A"})) << "a box, as for all characters that no font has";
    EXPECT_EQ(lineIn("Unknown", {"U+F02A"}), lineIn("Unknown", {"U+F028"}));
}

TEST(Fonts, DocumentsBringTheirOwn) {
    const std::string file = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf";
    const std::string name = "DejaVu Sans Mono";
    const std::string renamed = "Harbour Embedded";
    const std::string words = "Illicit WAVES";
    const Pixels contained = lineIn(renamed, {words, file, name});
    EXPECT_EQ(contained, lineIn(name, {words}));
    EXPECT_NE(contained, lineIn(renamed, {words})) << "the document alone has the font";
}

} // namespace
} // namespace lectern::test
