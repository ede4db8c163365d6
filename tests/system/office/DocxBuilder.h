// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace lectern::engine::test {

// Builds small .docx files part by part.
class DocxBuilder {
public:
    DocxBuilder& paragraph(const std::string& text, const std::string& properties = "");
    // A page of its own for what follows.
    DocxBuilder& pageBreak();
    // One row of cells; widths in twips.
    DocxBuilder& table(int columns, int widthOfColumn, const std::string& textOfCell);
    // A black picture, widths and heights in inches. Floats at the page's corner
    // when not inline.
    DocxBuilder& picture(double width, double height, bool isInline = true);
    // A reference to a footnote with this text.
    DocxBuilder& footnote(const std::string& text);
    DocxBuilder& header(const std::string& text);
    // docProps/core.xml; times as in "2012-03-04T05:06:07Z".
    DocxBuilder& properties(const std::string& title, const std::string& author,
                            const std::string& description, const std::string& created,
                            const std::string& modified);

    // The finished file, under a name in the test's folder.
    std::filesystem::path write(const std::string& name) const;

private:
    std::string mBody;
    std::string mFootnotes;
    std::string mHeader;
    std::string mProperties;
    int mNotes = 0;
    int mPictures = 0;
};

} // namespace lectern::engine::test
