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
    // A paragraph with a label, such as "%1." or "Step %1:", where %1 is its number.
    DocxBuilder& listItem(const std::string& text, const std::string& label);
    // Adds a block of WordprocessingML, which declares further namespaces itself.
    DocxBuilder& block(const std::string& xml);
    // Starts a new page.
    DocxBuilder& pageBreak();
    // Adds a table with one row; widths in twips.
    DocxBuilder& table(int columns, int widthOfColumn, const std::string& textOfCell);
    // Adds a black picture, sizes in inches. A picture that is not inline
    // floats at the page's corner.
    DocxBuilder& picture(double width, double height, bool isInline = true);
    // Adds a reference to a footnote with this text.
    DocxBuilder& footnote(const std::string& text);
    // Adds a paragraph with a comment on its text.
    DocxBuilder& comment(const std::string& text, const std::string& comment);
    // Adds blocks as they are, such as those of Floats.h.
    DocxBuilder& body(const std::string& xml);
    // Adds a paragraph with a comment on the point behind its text.
    DocxBuilder& commentedPoint(const std::string& text, const std::string& comment);
    // Asks programs that open the document to let it be read only.
    DocxBuilder& protect();
    DocxBuilder& header(const std::string& text);
    // Sets docProps/core.xml; times have the form "2012-03-04T05:06:07Z".
    DocxBuilder& properties(const std::string& title, const std::string& author,
                            const std::string& description, const std::string& created,
                            const std::string& modified);

    // Writes the finished file to the test's folder and returns its path.
    std::filesystem::path write(const std::string& name) const;

private:
    std::string mBody;
    std::string mComments;
    std::string mFootnotes;
    std::string mHeader;
    std::string mLabel;
    bool mProtected = false;
    std::string mProperties;
    int mNotes = 0;
    int mPictures = 0;
};

} // namespace lectern::engine::test
