#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes a .docx with one line in a font: make_font_docx.py OUT.docx FONT [WORDS [FILE OLD-NAME]]

WORDS of the form U+F02A are a symbol with that code in the font. With FILE, the document contains that TrueType font, renamed to FONT, which must be as long as OLD-NAME."""
import sys
import zipfile

NAMESPACES = ('xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main" '
              'xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"')
RELATION = 'http://schemas.openxmlformats.org/officeDocument/2006/relationships'
CONTENT = 'application/vnd.openxmlformats-officedocument'
KEY = '3EC5D9B8-8B4C-4E5F-9A5E-3B1D1C2A7F01'  # any identifier; the font is mixed with it


def renamed(font, old, new):
    if len(old) != len(new):
        sys.exit(__doc__)
    return font.replace(old.encode(), new.encode()).replace(old.encode('utf-16-be'), new.encode('utf-16-be'))


def obfuscated(font):
    """The form in which documents contain fonts: the first 32 bytes are mixed with the key, read backwards."""
    key = bytes.fromhex(KEY.replace('-', ''))[::-1]
    return bytes(byte ^ key[i % len(key)] for i, byte in enumerate(font[:32])) + font[32:]


def relations(kind, target):
    return ('<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
            f'<Relationship Id="rId1" Type="{RELATION}/{kind}" Target="{target}"/></Relationships>')


def text(name, words):
    if words.startswith('U+'):
        return f'<w:sym w:font="{name}" w:char="{words[2:]}"/>'
    return f'<w:t>{words}</w:t>'


def parts(name, words, font):
    table = f'<w:embedRegular r:id="rId1" w:fontKey="{{{KEY}}}"/>' if font else ''
    yield '[Content_Types].xml', (
        '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
        '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
        f'<Default Extension="odttf" ContentType="{CONTENT}.obfuscatedFont"/>'
        f'<Override PartName="/word/document.xml" ContentType="{CONTENT}.wordprocessingml.document.main+xml"/>'
        f'<Override PartName="/word/fontTable.xml" ContentType="{CONTENT}.wordprocessingml.fontTable+xml"/></Types>')
    yield '_rels/.rels', relations('officeDocument', 'word/document.xml')
    yield 'word/_rels/document.xml.rels', relations('fontTable', 'fontTable.xml')
    yield 'word/fontTable.xml', f'<w:fonts {NAMESPACES}><w:font w:name="{name}">{table}</w:font></w:fonts>'
    yield 'word/document.xml', (
        f'<w:document {NAMESPACES}><w:body><w:p><w:r><w:rPr><w:rFonts w:ascii="{name}" w:hAnsi="{name}"/>'
        f'<w:sz w:val="36"/></w:rPr>{text(name, words)}</w:r></w:p></w:body></w:document>')
    if font:
        yield 'word/_rels/fontTable.xml.rels', relations('font', 'fonts/font1.odttf')
        yield 'word/fonts/font1.odttf', obfuscated(font)


def main(out, name, words='Illicit WAVES of fjord quiz', file=None, old=None):
    font = None
    if file:
        with open(file, 'rb') as source:
            font = renamed(source.read(), old, name)
    with zipfile.ZipFile(out, 'w', zipfile.ZIP_DEFLATED) as archive:
        for part, data in parts(name, words, font):
            archive.writestr(part, data)


if __name__ == '__main__':
    if len(sys.argv) not in (3, 4, 6):
        sys.exit(__doc__)
    main(*sys.argv[1:])
