// SPDX-License-Identifier: Apache-2.0
#include "tests/system/office/DocxBuilder.h"

#include "tests/system/office/OfficeFixture.h"

#include <png.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace lectern::engine::test {

namespace {

constexpr char DECLARATION[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr char TYPES[] = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
constexpr char OFFICE[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char PACKAGE[] = "http://schemas.openxmlformats.org/package/2006";
constexpr char WORD[] = "xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"";

std::string run(const std::string& inner) {
    return "<w:r>" + inner + "</w:r>";
}

std::string override(const std::string& part, const std::string& type) {
    return "<Override PartName=\"/word/" + part + ".xml\" ContentType=\"" + TYPES + type + "+xml\"/>";
}

std::string relationship(const std::string& id, const std::string& type, const std::string& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + type + "\" Target=\"" + target + "\"/>";
}

std::string relationships(const std::string& inner) {
    return std::string(DECLARATION) + "<Relationships xmlns=\"" + PACKAGE + "/relationships\">" + inner +
           "</Relationships>";
}

std::string emu(double inches) {
    return std::to_string(static_cast<int64_t>(inches * 914400));
}

void writeBlackPng(const std::filesystem::path& path) {
    constexpr int SIDE = 64;
    const std::vector<uint8_t> pixels(SIDE * SIDE, 0);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = SIDE;
    image.height = SIDE;
    image.format = PNG_FORMAT_GRAY;
    ASSERT_NE(png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr), 0);
}

// A ZIP archive with a folder's contents.
void archive(const std::filesystem::path& file, const std::filesystem::path& parts) {
    std::vector<std::string> words = {"python3", "-m", "zipfile", "-c", file};
    for (const auto& entry : std::filesystem::directory_iterator(parts)) {
        words.push_back(entry.path());
    }
    std::vector<char*> argv;
    for (std::string& text : words) {
        argv.push_back(text.data());
    }
    argv.push_back(nullptr);
    pid_t child = 0;
    ASSERT_EQ(posix_spawnp(&child, "python3", nullptr, nullptr, argv.data(), environ), 0);
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
}

} // namespace

DocxBuilder& DocxBuilder::paragraph(const std::string& text, const std::string& properties) {
    mBody += "<w:p><w:pPr>" + properties + "</w:pPr>" +
             run("<w:t xml:space=\"preserve\">" + text + "</w:t>") + "</w:p>";
    return *this;
}

DocxBuilder& DocxBuilder::listItem(const std::string& text, const std::string& label) {
    mLabel = label;
    return paragraph(text, "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>");
}

DocxBuilder& DocxBuilder::block(const std::string& xml) {
    mBody += xml;
    return *this;
}

DocxBuilder& DocxBuilder::pageBreak() {
    mBody += "<w:p>" + run("<w:br w:type=\"page\"/>") + "</w:p>";
    return *this;
}

DocxBuilder& DocxBuilder::table(int columns, int widthOfColumn, const std::string& textOfCell) {
    const std::string width = std::to_string(widthOfColumn);
    std::string grid;
    std::string cells;
    for (int column = 0; column < columns; ++column) {
        grid += "<w:gridCol w:w=\"" + width + "\"/>";
        cells += "<w:tc><w:tcPr><w:tcW w:w=\"" + width + "\" w:type=\"dxa\"/></w:tcPr><w:p>" +
                 run("<w:t>" + textOfCell + std::to_string(column) + "</w:t>") + "</w:p></w:tc>";
    }
    const std::string line = " w:val=\"single\" w:sz=\"8\" w:color=\"000000\"/>";
    mBody += "<w:tbl><w:tblPr><w:tblW w:w=\"" + std::to_string(columns * widthOfColumn) +
             "\" w:type=\"dxa\"/><w:tblBorders><w:left" + line + "<w:right" + line + "<w:insideV" + line +
             "</w:tblBorders></w:tblPr><w:tblGrid>" + grid + "</w:tblGrid><w:tr>" + cells + "</w:tr></w:tbl>";
    return *this;
}

DocxBuilder& DocxBuilder::picture(double width, double height, bool isInline) {
    const std::string id = std::to_string(++mPictures);
    const std::string extent = " cx=\"" + emu(width) + "\" cy=\"" + emu(height) + "\"/>";
    const std::string name = "<wp:docPr id=\"" + id + "\" name=\"picture" + id + "\"/>";
    const std::string graphic =
        "<a:graphic xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\"><a:graphicData "
        "uri=\"http://schemas.openxmlformats.org/drawingml/2006/picture\"><pic:pic "
        "xmlns:pic=\"http://schemas.openxmlformats.org/drawingml/2006/picture\"><pic:nvPicPr><pic:cNvPr "
        "id=\"" +
        id +
        "\" name=\"p\"/><pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip r:embed=\"black\"/><a:stretch>"
        "<a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm><a:off x=\"0\" y=\"0\"/><a:ext" +
        extent +
        "</a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData>"
        "</a:graphic>";
    const std::string place =
        "<wp:simplePos x=\"0\" y=\"0\"/><wp:positionH relativeFrom=\"page\"><wp:posOffset>0</wp:posOffset>"
        "</wp:positionH><wp:positionV relativeFrom=\"page\"><wp:posOffset>0</wp:posOffset></wp:positionV>";
    const std::string drawing =
        isInline ? "<wp:inline distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\"><wp:extent" + extent + name +
                       graphic + "</wp:inline>"
                 : "<wp:anchor distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\" simplePos=\"0\" "
                   "relativeHeight=\"1\" "
                   "behindDoc=\"0\" locked=\"0\" layoutInCell=\"1\" allowOverlap=\"1\">" +
                       place + "<wp:extent" + extent + "<wp:wrapNone/>" + name + graphic + "</wp:anchor>";
    mBody += "<w:p>" + run("<w:drawing>" + drawing + "</w:drawing>") + "</w:p>";
    return *this;
}

DocxBuilder& DocxBuilder::footnote(const std::string& text) {
    const std::string id = std::to_string(++mNotes);
    mBody += "<w:p>" + run("<w:t>noted</w:t>") + run("<w:footnoteReference w:id=\"" + id + "\"/>") + "</w:p>";
    mFootnotes +=
        "<w:footnote w:id=\"" + id + "\"><w:p>" + run("<w:t>" + text + "</w:t>") + "</w:p></w:footnote>";
    return *this;
}

DocxBuilder& DocxBuilder::comment(const std::string& text, const std::string& comment) {
    const std::string id = std::to_string(++mNotes);
    mBody += "<w:p><w:commentRangeStart w:id=\"" + id + "\"/>" + run("<w:t>" + text + "</w:t>") +
             "<w:commentRangeEnd w:id=\"" + id + "\"/>" + run("<w:commentReference w:id=\"" + id + "\"/>") +
             "</w:p>";
    mComments += "<w:comment w:id=\"" + id + "\" w:author=\"A\"><w:p>" + run("<w:t>" + comment + "</w:t>") +
                 "</w:p></w:comment>";
    return *this;
}

DocxBuilder& DocxBuilder::commentedPoint(const std::string& text, const std::string& comment) {
    const std::string id = std::to_string(++mNotes);
    mBody += "<w:p>" + run("<w:t xml:space=\"preserve\">" + text + "</w:t>") +
             run("<w:commentReference w:id=\"" + id + "\"/>") + "</w:p>";
    mComments += "<w:comment w:id=\"" + id + "\" w:author=\"A\"><w:p>" + run("<w:t>" + comment + "</w:t>") +
                 "</w:p></w:comment>";
    return *this;
}

DocxBuilder& DocxBuilder::body(const std::string& xml) {
    mBody += xml;
    return *this;
}

DocxBuilder& DocxBuilder::protect() {
    mProtected = true;
    return *this;
}

DocxBuilder& DocxBuilder::header(const std::string& text) {
    mHeader = "<w:p>" + run("<w:t>" + text + "</w:t>") + "</w:p>";
    return *this;
}

DocxBuilder& DocxBuilder::properties(const std::string& title, const std::string& author,
                                     const std::string& description, const std::string& created,
                                     const std::string& modified) {
    const auto time = [](const std::string& name, const std::string& value) {
        return "<dcterms:" + name + " xsi:type=\"dcterms:W3CDTF\">" + value + "</dcterms:" + name + ">";
    };
    mProperties = "<dc:title>" + title + "</dc:title><dc:creator>" + author +
                  "</dc:creator><dc:description>" + description + "</dc:description>" +
                  time("created", created) + time("modified", modified);
    return *this;
}

std::filesystem::path DocxBuilder::write(const std::string& name) const {
    const std::string parts = name + ".parts/";
    const auto part = [&](const std::string& path, const std::string& xml) {
        OfficeTest::write(parts + path, DECLARATION + xml);
    };
    const std::string footnotesPart = mFootnotes.empty() ? "" : override("footnotes", "footnotes");
    const std::string labelPart = mLabel.empty() ? "" : override("numbering", "numbering");
    const std::string settingsPart = mProtected ? override("settings", "settings") : "";
    const std::string commentsPart = mComments.empty() ? "" : override("comments", "comments");
    const std::string headerPart = mHeader.empty() ? "" : override("header1", "header");
    part("[Content_Types].xml",
         std::string("<Types xmlns=\"") + PACKAGE +
             "/content-types\"><Default Extension=\"rels\" "
             "ContentType=\"application/vnd.openxmlformats-package."
             "relationships+xml\"/><Default Extension=\"png\" ContentType=\"image/png\"/><Override "
             "PartName=\"/docProps/core.xml\" ContentType=\"application/vnd.openxmlformats-package."
             "core-properties+xml\"/>" +
             override("document", "document.main") + commentsPart + footnotesPart + settingsPart +
             headerPart + labelPart + "</Types>");
    OfficeTest::write(
        parts + "_rels/.rels",
        relationships(relationship("d", std::string(OFFICE) + "/officeDocument", "word/document.xml") +
                      relationship("p", std::string(PACKAGE) + "/relationships/metadata/core-properties",
                                   "docProps/core.xml")));
    OfficeTest::write(
        parts + "word/_rels/document.xml.rels",
        relationships(
            relationship("black", std::string(OFFICE) + "/image", "media/black.png") +
            "<Relationship Id=\"missing\" Type=\"" + OFFICE +
            "/image\" Target=\"file:///nowhere/missing.png\" TargetMode=\"External\"/>" +
            (mComments.empty() ? "" : relationship("c", std::string(OFFICE) + "/comments", "comments.xml")) +
            (mFootnotes.empty() ? ""
                                : relationship("n", std::string(OFFICE) + "/footnotes", "footnotes.xml")) +
            (mProtected ? relationship("s", std::string(OFFICE) + "/settings", "settings.xml") : "") +
            (mHeader.empty() ? "" : relationship("h", std::string(OFFICE) + "/header", "header1.xml")) +
            (mLabel.empty() ? "" : relationship("l", std::string(OFFICE) + "/numbering", "numbering.xml"))));
    part("docProps/core.xml", std::string("<cp:coreProperties xmlns:cp=\"") + PACKAGE +
                                  "/metadata/core-properties\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
                                  "xmlns:dcterms=\"http://purl.org/dc/terms/\" "
                                  "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">" +
                                  mProperties + "</cp:coreProperties>");
    if (mProtected) {
        part("word/settings.xml",
             std::string("<w:settings ") + WORD +
                 "><w:documentProtection w:edit=\"readOnly\" w:enforcement=\"1\"/></w:settings>");
    }
    if (!mComments.empty()) {
        part("word/comments.xml", std::string("<w:comments ") + WORD + ">" + mComments + "</w:comments>");
    }
    if (!mFootnotes.empty()) {
        part("word/footnotes.xml", std::string("<w:footnotes ") + WORD + ">" + mFootnotes + "</w:footnotes>");
    }
    if (!mHeader.empty()) {
        part("word/header1.xml", std::string("<w:hdr ") + WORD + ">" + mHeader + "</w:hdr>");
    }
    if (!mLabel.empty()) {
        part("word/numbering.xml",
             std::string("<w:numbering ") + WORD +
                 "><w:abstractNum w:abstractNumId=\"0\"><w:lvl w:ilvl=\"0\"><w:start w:val=\"1\"/><w:numFmt "
                 "w:val=\"decimal\"/><w:lvlText w:val=\"" +
                 mLabel +
                 "\"/></w:lvl></w:abstractNum><w:num w:numId=\"1\"><w:abstractNumId w:val=\"0\"/></w:num>"
                 "</w:numbering>");
    }
    part("word/document.xml",
         std::string("<w:document ") + WORD + " xmlns:r=\"" + OFFICE +
             "\" "
             "xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\"><w:body>" +
             mBody + "<w:sectPr>" +
             (mHeader.empty() ? "" : "<w:headerReference w:type=\"default\" r:id=\"h\"/>") +
             "<w:pgSz w:w=\"11906\" w:h=\"16838\"/></w:sectPr></w:body></w:document>");
    const std::filesystem::path picture = OfficeTest::write(parts + "word/media/black.png", "");
    writeBlackPng(picture);
    std::filesystem::path file = testFolder() / name;
    archive(file, testFolder() / parts);
    return file;
}

} // namespace lectern::engine::test
