// SPDX-License-Identifier: Apache-2.0
#include "tests/system/office/Floats.h"

#include <cstdint>

namespace lectern::engine::test {

namespace {

constexpr char SHAPE[] = "http://schemas.microsoft.com/office/word/2010/wordprocessingShape";
constexpr char GROUP[] = "http://schemas.microsoft.com/office/word/2010/wordprocessingGroup";
constexpr char DRAWING[] = "http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr char PICTURE[] = "http://schemas.openxmlformats.org/drawingml/2006/picture";

std::string emu(double inches) {
    return std::to_string(static_cast<int64_t>(inches * 914400));
}

std::string area(double left, double top, double width, double height) {
    return "<a:xfrm><a:off x=\"" + emu(left) + "\" y=\"" + emu(top) + "\"/><a:ext cx=\"" + emu(width) +
           "\" cy=\"" + emu(height) + "\"/>";
}

std::string offset(const std::string& axis, const std::string& from, double inches) {
    return "<wp:position" + axis + " relativeFrom=\"" + from + "\"><wp:posOffset>" + emu(inches) +
           "</wp:posOffset></wp:position" + axis + ">";
}

std::string graphic(const std::string& type, const std::string& content) {
    return std::string("<wp:docPr id=\"1\" name=\"drawing\"/><a:graphic xmlns:a=\"") + DRAWING +
           "\"><a:graphicData uri=\"" + type + "\">" + content + "</a:graphicData></a:graphic>";
}

std::string anchored(const Place& place, double width, double height, const Look& look,
                     const std::string& type, const std::string& content) {
    return "<w:r><w:drawing><wp:anchor distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\" simplePos=\"0\" "
           "relativeHeight=\"1\" locked=\"0\" layoutInCell=\"1\" allowOverlap=\"1\" behindDoc=\"" +
           std::to_string(look.behindText ? 1 : 0) + "\"><wp:simplePos x=\"0\" y=\"0\"/>" +
           offset("H", place.onPage ? "page" : "column", place.left) +
           offset("V", place.onPage ? "page" : "paragraph", place.top) + "<wp:extent cx=\"" + emu(width) +
           "\" cy=\"" + emu(height) + "\"/>" + look.wrap + graphic(type, content) +
           "</wp:anchor></w:drawing></w:r>";
}

std::string rectangle(double left, double width, double height, const std::string& paragraphs,
                      const Look& look) {
    const std::string fill = look.fill.empty()
                                 ? "<a:noFill/>"
                                 : "<a:solidFill><a:srgbClr val=\"" + look.fill + "\"/></a:solidFill>";
    const std::string line =
        look.outlined ? "<a:ln><a:solidFill><a:srgbClr val=\"000000\"/></a:solidFill></a:ln>" : "";
    const std::string text =
        paragraphs.empty() ? "" : "<wps:txbx><w:txbxContent>" + paragraphs + "</w:txbxContent></wps:txbx>";
    return std::string("<wps:wsp xmlns:wps=\"") + SHAPE + "\"><wps:cNvSpPr/><wps:spPr>" +
           area(left, 0, width, height) + "</a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom>" +
           fill + line + "</wps:spPr>" + text + "<wps:bodyPr/></wps:wsp>";
}

std::string group(double width, double height, const std::string& shapes) {
    return std::string("<wpg:wgp xmlns:wpg=\"") + GROUP + "\"><wpg:cNvGrpSpPr/><wpg:grpSpPr>" +
           area(0, 0, width, height) + "<a:chOff x=\"0\" y=\"0\"/><a:chExt cx=\"" + emu(width) + "\" cy=\"" +
           emu(height) + "\"/></a:xfrm></wpg:grpSpPr>" + shapes + "</wpg:wgp>";
}

} // namespace

std::string paragraphOf(const std::string& text, const std::string& properties) {
    return "<w:p><w:pPr>" + properties + "</w:pPr><w:r><w:t xml:space=\"preserve\">" + text +
           "</w:t></w:r></w:p>";
}

std::string box(const Place& place, double width, double height, const std::string& paragraphs,
                const Look& look) {
    return anchored(place, width, height, look, SHAPE, rectangle(0, width, height, paragraphs, look));
}

std::string groupOfBoxes(const Place& place, const std::initializer_list<std::string>& texts) {
    const double width = 2.0 * static_cast<double>(texts.size());
    std::string boxes;
    double left = width;
    for (const std::string& text : texts) {
        left -= 2;
        boxes += rectangle(left, 1.5, 0.5, paragraphOf(text), {});
    }
    return anchored(place, width, 0.5, {}, GROUP, group(width, 0.5, boxes));
}

std::string groupInLine() {
    const Look filled{.fill = "112233"};
    const std::string boxes = rectangle(0, 1, 1, "", filled) + rectangle(2, 1, 1, "", filled);
    return "<w:r><w:drawing><wp:inline distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\"><wp:extent cx=\"" +
           emu(3) + "\" cy=\"" + emu(1) + "\"/>" + graphic(GROUP, group(3, 1, boxes)) +
           "</wp:inline></w:drawing></w:r>";
}

std::string oldBox(double top, const std::string& paragraphs) {
    return "<w:r><w:pict><v:shape xmlns:v=\"urn:schemas-microsoft-com:vml\" id=\"b\" type=\"#_x0000_t202\" "
           "style=\"position:absolute;margin-left:10pt;margin-top:" +
           std::to_string(static_cast<int>(top * 72)) +
           "pt;width:120pt;height:60pt;z-index:1\"><v:textbox><w:txbxContent>" + paragraphs +
           "</w:txbxContent></v:textbox></v:shape></w:pict></w:r>";
}

std::string frameProperties() {
    return "<w:framePr w:w=\"2500\" w:hSpace=\"180\" w:wrap=\"around\" w:vAnchor=\"page\" w:hAnchor=\"page\" "
           "w:x=\"500\" w:y=\"700\"/>";
}

std::string plainTable(const std::initializer_list<std::string>& cells, bool floats) {
    std::string grid;
    std::string row;
    for (const std::string& cell : cells) {
        grid += "<w:gridCol w:w=\"1500\"/>";
        row += "<w:tc><w:tcPr><w:tcW w:w=\"1500\" w:type=\"dxa\"/></w:tcPr>" + paragraphOf(cell) + "</w:tc>";
    }
    const std::string place = floats ? "<w:tblpPr w:leftFromText=\"141\" w:rightFromText=\"141\" "
                                       "w:vertAnchor=\"text\" w:horzAnchor=\"margin\" w:tblpXSpec=\"right\" "
                                       "w:tblpY=\"200\"/>"
                                     : "";
    return "<w:tbl><w:tblPr>" + place + "<w:tblW w:w=\"" + std::to_string(1500 * cells.size()) +
           "\" w:type=\"dxa\"/></w:tblPr><w:tblGrid>" + grid + "</w:tblGrid><w:tr>" + row + "</w:tr></w:tbl>";
}

std::string linkedPicture(double width, double height) {
    const std::string picture =
        std::string("<pic:pic xmlns:pic=\"") + PICTURE +
        "\"><pic:nvPicPr><pic:cNvPr id=\"1\" name=\"p\"/><pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip "
        "r:link=\"missing\"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr>" +
        area(0, 0, width, height) +
        "</a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic>";
    return anchored({}, width, height, {}, PICTURE, picture);
}

} // namespace lectern::engine::test
