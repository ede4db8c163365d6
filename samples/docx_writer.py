# SPDX-License-Identifier: Apache-2.0
"""Writes .docx files, using the standard library only.

Supports as much of the format as samples and tests need: headings, lists, tables, pictures,
footnotes and endnotes, comments, links and bookmarks, fields, text boxes and a
table of contents, and text in any script and direction. The same calls always write
the same bytes, so stored samples can be made again.
"""
import struct
import zipfile
import zlib
from xml.sax.saxutils import escape, quoteattr

W = 'xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"'
R = 'xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"'
DRAWING = ('xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing" '
           'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" '
           'xmlns:pic="http://schemas.openxmlformats.org/drawingml/2006/picture"')
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
REL = 'http://schemas.openxmlformats.org/officeDocument/2006/relationships'
CONTENT = 'application/vnd.openxmlformats-officedocument.wordprocessingml'
SHAPE = 'http://schemas.microsoft.com/office/word/2010/wordprocessingShape'
EMU_PER_PIXEL = 9525
TEXT_WIDTH_TWIPS = 9026  # A4 less margins of one inch


def png(width, height, pixel):
    """Returns a PNG image of width x height; pixel(x, y) returns the colour (r, g, b)."""
    rows = b''.join(b'\0' + b''.join(bytes(pixel(x, y)) for x in range(width)) for y in range(height))

    def chunk(kind, data):
        body = kind + data
        return struct.pack('>I', len(data)) + body + struct.pack('>I', zlib.crc32(body))

    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', width, height, 8, 2, 0, 0, 0)) +
            chunk(b'IDAT', zlib.compress(rows, 9)) + chunk(b'IEND', b''))


class Docx:
    """A document to write. Text arguments are strings or lists of runs, which text(), link(),
    jump(), footnote(), endnote(), comment(), field() and box() return."""

    def __init__(self, title='', author='', description='', created='', modified=''):
        self.core = (title, author, description, created, modified)
        self.body = []
        self.relations = []
        self.media = []
        self.notes = {'footnote': [], 'endnote': []}
        self.comments = []
        self.boxes = 0
        self.bookmarks = 0

    # runs

    @staticmethod
    def text(words, bold=False, italic=False, rtl=False, colour=None):
        marks = ('<w:b/>' if bold else '') + ('<w:i/>' if italic else '') + ('<w:rtl/>' if rtl else '')
        marks += f'<w:color w:val="{colour}"/>' if colour else ''
        return f'<w:r><w:rPr>{marks}</w:rPr><w:t xml:space="preserve">{escape(words)}</w:t></w:r>'

    def link(self, words, address):
        ident = self._relation('hyperlink', address, external=True)
        return f'<w:hyperlink r:id="{ident}">{self.text(words, colour="0563C1")}</w:hyperlink>'

    def jump(self, words, bookmark):
        return f'<w:hyperlink w:anchor={quoteattr(bookmark)}>{self.text(words, colour="0563C1")}</w:hyperlink>'

    def footnote(self, words):
        return self._note('footnote', words)

    def endnote(self, words):
        return self._note('endnote', words)

    def comment(self, words, remark, author='A reader'):
        """Words with a comment."""
        ident = len(self.comments)
        self.comments.append((author, remark))
        return (f'<w:commentRangeStart w:id="{ident}"/>{self._runs(words)}<w:commentRangeEnd w:id="{ident}"/>'
                f'<w:r><w:commentReference w:id="{ident}"/></w:r>')

    def field(self, instruction, words):
        """A field; words are its shown result."""
        marks = {kind: f'<w:r><w:fldChar w:fldCharType="{kind}"/></w:r>' for kind in ('begin', 'separate', 'end')}
        return (f'{marks["begin"]}<w:r><w:instrText xml:space="preserve"> {escape(instruction)} </w:instrText></w:r>'
                f'{marks["separate"]}{self._runs(words)}{marks["end"]}')

    def box(self, words, width, height):
        """A text box in the line; sizes in pixels of 1/96 inch."""
        self.boxes += 1
        size = f'cx="{width * EMU_PER_PIXEL}" cy="{height * EMU_PER_PIXEL}"'
        return (f'<w:r><w:drawing><wp:inline {DRAWING}><wp:extent {size}/><wp:docPr id="{900 + self.boxes}" '
                f'name="Box {self.boxes}"/><a:graphic><a:graphicData uri="{SHAPE}"><wps:wsp xmlns:wps="{SHAPE}">'
                f'<wps:cNvSpPr txBox="1"/><wps:spPr><a:xfrm><a:off x="0" y="0"/><a:ext {size}/></a:xfrm>'
                '<a:prstGeom prst="rect"><a:avLst/></a:prstGeom></wps:spPr><wps:txbx><w:txbxContent>'
                f'<w:p>{self._runs(words)}</w:p></w:txbxContent></wps:txbx><wps:bodyPr/></wps:wsp></a:graphicData>'
                '</a:graphic></wp:inline></w:drawing></w:r>')

    # blocks

    def contents(self, entries):
        """A table of contents. entries: pairs of a heading and its bookmark."""
        for number, (words, bookmark) in enumerate(entries):
            entry = self.jump(f'{words}\t{number + 1}', bookmark)
            if number == 0:
                begin = '<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText> TOC \\h </w:instrText></w:r>'
                entry = f'{begin}<w:r><w:fldChar w:fldCharType="separate"/></w:r>{entry}'
            if number == len(entries) - 1:
                entry += '<w:r><w:fldChar w:fldCharType="end"/></w:r>'
            self.body.append(f'<w:p>{entry}</w:p>')

    def heading(self, words, level=1, bookmark=None):
        inner = self._runs(words)
        if bookmark:
            self.bookmarks += 1
            inner = (f'<w:bookmarkStart w:id="{self.bookmarks}" w:name={quoteattr(bookmark)}/>{inner}'
                     f'<w:bookmarkEnd w:id="{self.bookmarks}"/>')
        self.body.append(f'<w:p><w:pPr><w:pStyle w:val="Heading{level}"/></w:pPr>{inner}</w:p>')

    def paragraph(self, words, rtl=False):
        marks = '<w:pPr><w:bidi/></w:pPr>' if rtl else ''
        self.body.append(f'<w:p>{marks}{self._runs(words, rtl)}</w:p>')

    def item(self, words, numbered=False, depth=0):
        self.body.append(f'<w:p><w:pPr><w:numPr><w:ilvl w:val="{depth}"/><w:numId w:val="{2 if numbered else 1}"/>'
                         f'</w:numPr></w:pPr>{self._runs(words)}</w:p>')

    def page_break(self):
        self.body.append('<w:p><w:r><w:br w:type="page"/></w:r></w:p>')

    def table(self, rows, column_twips=None):
        """A table. column_twips may add up to more than the width of the page."""
        columns = len(rows[0])
        widths = column_twips or [TEXT_WIDTH_TWIPS // columns] * columns
        edges = ''.join(f'<w:{side} w:val="single" w:sz="4" w:color="808080"/>'
                        for side in ('top', 'left', 'bottom', 'right', 'insideH', 'insideV'))
        grid = ''.join(f'<w:gridCol w:w="{w}"/>' for w in widths)
        lines = ''.join('<w:tr>' + ''.join(
            f'<w:tc><w:tcPr><w:tcW w:w="{w}" w:type="dxa"/></w:tcPr><w:p>{self._runs(cell)}</w:p></w:tc>'
            for cell, w in zip(row, widths)) + '</w:tr>' for row in rows)
        self.body.append(f'<w:tbl><w:tblPr><w:tblW w:w="{sum(widths)}" w:type="dxa"/><w:tblBorders>{edges}'
                         f'</w:tblBorders></w:tblPr><w:tblGrid>{grid}</w:tblGrid>{lines}</w:tbl><w:p/>')

    def picture(self, data, width, height):
        """A picture of PNG bytes, width x height pixels of 1/96 inch."""
        self.media.append(data)
        number = len(self.media)
        ident = self._relation('image', f'media/image{number}.png')
        size = f'cx="{width * EMU_PER_PIXEL}" cy="{height * EMU_PER_PIXEL}"'
        self.body.append(
            f'<w:p><w:r><w:drawing><wp:inline {DRAWING}><wp:extent {size}/><wp:docPr id="{number}" name="Picture {number}"/>'
            '<a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/picture"><pic:pic>'
            f'<pic:nvPicPr><pic:cNvPr id="{number}" name="Picture {number}"/><pic:cNvPicPr/></pic:nvPicPr>'
            f'<pic:blipFill><a:blip r:embed="{ident}"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill>'
            f'<pic:spPr><a:xfrm><a:off x="0" y="0"/><a:ext {size}/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom>'
            '</pic:spPr></pic:pic></a:graphicData></a:graphic></wp:inline></w:drawing></w:r></w:p>')

    # writing

    def save(self, path):
        parts = {
            '[Content_Types].xml': self._content_types(),
            '_rels/.rels': self._rels([
                ('officeDocument', 'word/document.xml', REL),
                ('metadata/core-properties', 'docProps/core.xml',
                 'http://schemas.openxmlformats.org/package/2006/relationships')]),
            'docProps/core.xml': self._core(),
            'word/document.xml': f'{HEAD}<w:document {W} {R}><w:body>{"".join(self.body)}<w:sectPr>'
                                 '<w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1440" w:right="1440" '
                                 'w:bottom="1440" w:left="1440" w:header="708" w:footer="708" w:gutter="0"/>'
                                 '</w:sectPr></w:body></w:document>',
            'word/styles.xml': STYLES,
            'word/numbering.xml': NUMBERING,
            'word/footnotes.xml': self._notes_part('footnote'),
            'word/endnotes.xml': self._notes_part('endnote'),
            'word/_rels/document.xml.rels': self._document_rels(),
        }
        if self.comments:
            parts['word/comments.xml'] = self._comments_part()
        with zipfile.ZipFile(path, 'w', zipfile.ZIP_DEFLATED) as archive:
            for name, data in parts.items():
                self._add(archive, name, data.encode())
            for number, data in enumerate(self.media, 1):
                self._add(archive, f'word/media/image{number}.png', data)

    @staticmethod
    def _add(archive, name, data):
        entry = zipfile.ZipInfo(name, (2020, 1, 1, 0, 0, 0))  # fixed, so that equal documents are equal files
        entry.compress_type = zipfile.ZIP_DEFLATED
        archive.writestr(entry, data)

    def _runs(self, words, rtl=False):
        return self.text(words, rtl=rtl) if isinstance(words, str) and not words.startswith('<w:') else ''.join(
            w if w.startswith('<w:') else self.text(w, rtl=rtl) for w in ([words] if isinstance(words, str) else words))

    def _relation(self, kind, target, external=False):
        self.relations.append((kind, target, external))
        return f'rId{len(self.relations) + 10}'

    def _note(self, kind, words):
        self.notes[kind].append(words)
        return (f'<w:r><w:rPr><w:vertAlign w:val="superscript"/></w:rPr>'
                f'<w:{kind}Reference w:id="{len(self.notes[kind]) + 1}"/></w:r>')

    def _notes_part(self, kind):
        mark = f'<w:r><w:rPr><w:vertAlign w:val="superscript"/></w:rPr><w:{kind}Ref/></w:r>'
        notes = ''.join(f'<w:{kind} w:id="{number}"><w:p>{mark}{self._runs(" " + words)}</w:p></w:{kind}>'
                        for number, words in enumerate(self.notes[kind], 2))
        lines = ''.join(f'<w:{kind} w:type="{t}" w:id="{i}"><w:p><w:r><w:{t}/></w:r></w:p></w:{kind}>'
                        for i, t in enumerate(('separator', 'continuationSeparator')))
        return f'{HEAD}<w:{kind}s {W} {R}>{lines}{notes}</w:{kind}s>'

    def _comments_part(self):
        remarks = ''.join(f'<w:comment w:id="{ident}" w:author={quoteattr(author)} w:date="2026-01-05T08:30:00Z">'
                          f'<w:p>{self._runs(remark)}</w:p></w:comment>' for ident, (author, remark) in enumerate(self.comments))
        return f'{HEAD}<w:comments {W}>{remarks}</w:comments>'

    def _content_types(self):
        overrides = ''.join(f'<Override PartName="/word/{name}.xml" ContentType="{CONTENT}.{kind}+xml"/>' for name, kind in (
            ('document', 'document.main'), ('styles', 'styles'), ('numbering', 'numbering'),
            ('footnotes', 'footnotes'), ('endnotes', 'endnotes'), *([('comments', 'comments')] if self.comments else [])))
        return (f'{HEAD}<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
                '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
                '<Default Extension="xml" ContentType="application/xml"/><Default Extension="png" ContentType="image/png"/>'
                f'{overrides}<Override PartName="/docProps/core.xml" '
                'ContentType="application/vnd.openxmlformats-package.core-properties+xml"/></Types>')

    @staticmethod
    def _rels(entries):
        lines = ''.join(f'<Relationship Id="rId{i}" Type="{base}/{kind}" Target="{target}"/>'
                        for i, (kind, target, base) in enumerate(entries, 1))
        return f'{HEAD}<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">{lines}</Relationships>'

    def _document_rels(self):
        kinds = ['styles', 'numbering', 'footnotes', 'endnotes'] + (['comments'] if self.comments else [])
        fixed = self._rels([(kind, f'{kind}.xml', REL) for kind in kinds])
        more = ''.join(f'<Relationship Id="rId{i + 11}" Type="{REL}/{kind}" Target={quoteattr(target)}'
                       f'{" TargetMode=" + chr(34) + "External" + chr(34) if external else ""}/>'
                       for i, (kind, target, external) in enumerate(self.relations))
        return fixed.replace('</Relationships>', more + '</Relationships>')

    def _core(self):
        title, author, description, created, modified = (escape(x) for x in self.core)
        dates = ''.join(f'<dcterms:{tag} xsi:type="dcterms:W3CDTF">{value}</dcterms:{tag}>'
                        for tag, value in (('created', created), ('modified', modified)) if value)
        return (f'{HEAD}<cp:coreProperties xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties" '
                'xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:dcterms="http://purl.org/dc/terms/" '
                'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">'
                f'<dc:title>{title}</dc:title><dc:creator>{author}</dc:creator><dc:description>{description}</dc:description>'
                f'{dates}</cp:coreProperties>')


def _heading_style(level, half_points):
    return (f'<w:style w:type="paragraph" w:styleId="Heading{level}"><w:name w:val="heading {level}"/>'
            f'<w:basedOn w:val="Normal"/><w:pPr><w:keepNext/><w:spacing w:before="240" w:after="120"/>'
            f'<w:outlineLvl w:val="{level - 1}"/></w:pPr><w:rPr><w:b/><w:sz w:val="{half_points}"/></w:rPr></w:style>')


STYLES = (f'{HEAD}<w:styles {W}><w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:ascii="Liberation Serif" '
          'w:hAnsi="Liberation Serif" w:eastAsia="Noto Sans CJK SC" w:cs="Noto Sans Arabic"/><w:sz w:val="22"/>'
          '<w:szCs w:val="22"/></w:rPr></w:rPrDefault><w:pPrDefault><w:pPr><w:spacing w:after="120"/></w:pPr></w:pPrDefault>'
          '</w:docDefaults><w:style w:type="paragraph" w:default="1" w:styleId="Normal"><w:name w:val="Normal"/></w:style>'
          f'{_heading_style(1, 36)}{_heading_style(2, 28)}{_heading_style(3, 24)}</w:styles>')


def _numbering(ident, levels):
    return f'<w:abstractNum w:abstractNumId="{ident}">' + ''.join(
        f'<w:lvl w:ilvl="{i}"><w:start w:val="1"/><w:numFmt w:val="{fmt}"/><w:lvlText w:val="{text}"/><w:pPr>'
        f'<w:ind w:left="{360 * (i + 1)}" w:hanging="360"/></w:pPr></w:lvl>' for i, (fmt, text) in enumerate(levels)) + '</w:abstractNum>'


NUMBERING = (f'{HEAD}<w:numbering {W}>' +
             _numbering(0, [('bullet', '•'), ('bullet', '–'), ('bullet', '•')]) +
             _numbering(1, [('decimal', '%1.'), ('lowerLetter', '%2)'), ('lowerRoman', '%3.')]) +
             '<w:num w:numId="1"><w:abstractNumId w:val="0"/></w:num>'
             '<w:num w:numId="2"><w:abstractNumId w:val="1"/></w:num></w:numbering>')
