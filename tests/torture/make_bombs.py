#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""make_bombs.py FOLDER small|large: writes files that are made to use up time, memory and
disk, to refer outward or to break readers. None is stored anywhere."""
import pathlib
import random
import sys
import zipfile

HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
TYPES = 'application/vnd.openxmlformats-officedocument'
PACKAGE = 'http://schemas.openxmlformats.org/package/2006'
REL = 'http://schemas.openxmlformats.org/officeDocument/2006/relationships'
W = 'xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"'
X = 'xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"'
KINDS = {'docx': ('word/document.xml', f'{TYPES}.wordprocessingml.document.main+xml'),
         'xlsx': ('xl/workbook.xml', f'{TYPES}.spreadsheetml.sheet.main+xml')}


def package(path: pathlib.Path, main: str, parts: dict[str, str], relations: str = '') -> None:
    name, content_type = KINDS[path.suffix[1:]]
    with zipfile.ZipFile(path, 'w', zipfile.ZIP_DEFLATED) as archive:
        archive.writestr('[Content_Types].xml', f'{HEAD}<Types xmlns="{PACKAGE}/content-types">'
                         '<Default Extension="rels" ContentType='
                         '"application/vnd.openxmlformats-package.relationships+xml"/>'
                         '<Default Extension="xml" ContentType="application/xml"/>'
                         f'<Override PartName="/{name}" ContentType="{content_type}"/>'
                         f'<Override PartName="/xl/sheet.xml" ContentType="{TYPES}.spreadsheetml.worksheet+xml"/>'
                         '</Types>')
        archive.writestr('_rels/.rels', f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships">'
                         f'<Relationship Id="r1" Type="{REL}/officeDocument" Target="{name}"/></Relationships>')
        folder, file = name.split('/')
        archive.writestr(f'{folder}/_rels/{file}.rels',
                         f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships">{relations}</Relationships>')
        archive.writestr(name, HEAD + main)
        for part, text in parts.items():
            archive.writestr(part, text)


def text(path: pathlib.Path, body: str, relations: str = '', parts: dict[str, str] | None = None) -> None:
    package(path, f'<w:document {W} xmlns:r="{REL}"><w:body>{body}</w:body></w:document>', parts or {}, relations)


def sheet(path: pathlib.Path, rows: str, rest: str = '') -> None:
    package(path, f'<workbook {X} xmlns:r="{REL}"><sheets><sheet name="A" sheetId="1" r:id="r1"/></sheets></workbook>',
            {'xl/sheet.xml': f'{HEAD}<worksheet {X}><sheetData>{rows}</sheetData>{rest}</worksheet>'},
            f'<Relationship Id="r1" Type="{REL}/worksheet" Target="sheet.xml"/>')


def paragraph(words: str) -> str:
    return f'<w:p><w:r><w:t xml:space="preserve">{words}</w:t></w:r></w:p>'


def write_all(folder: pathlib.Path, scale: int) -> None:
    text(folder / 'zip-bomb.docx', paragraph(' ' * (20_000_000 * scale)))
    text(folder / 'deep-tables.docx',
         '<w:tbl><w:tr><w:tc>' * (30 * scale) + paragraph('inside') + ('</w:tc></w:tr></w:tbl>' + paragraph(''))
         * (30 * scale))
    text(folder / 'deep-xml.docx', '<w:p>' * (5_000 * scale) + '</w:p>' * (5_000 * scale))
    text(folder / 'long-word.docx', paragraph('x' * (300_000 * scale)))
    text(folder / 'many-paragraphs.docx', paragraph('a b c') * (5_000 * scale))
    entities = ''.join(f'<!ENTITY e{i} "{f"&e{i - 1};" * 10 if i else "lol" * 10}">' for i in range(9))
    package(folder / 'entities.docx', f'<!DOCTYPE d [{entities}]><w:document {W}><w:body>{paragraph("&e8;")}'
            '</w:body></w:document>', {})
    picture = (f'<Relationship Id="r9" Type="{REL}/image" Target="file:///etc/passwd" TargetMode="External"/>'
               f'<Relationship Id="r8" Type="{REL}/attachedTemplate" Target="http://192.0.2.1/a.dot" '
               'TargetMode="External"/>')
    text(folder / 'outward.docx', paragraph('reference') + '<w:p><w:r><w:instrText>INCLUDETEXT "/etc/passwd"'
         '</w:instrText></w:r></w:p>', picture)
    (folder / 'refresh.doc').write_text('<html><head><meta http-equiv="refresh" content="0; url=/etc/passwd"></head>'
                                        '<body><table><tr><td>' * (20 * scale) + 'text')
    (folder / 'long.txt').write_text('a line of text\n' * (30_000 * scale))
    (folder / 'one-line.txt').write_text('word ' * (100_000 * scale))
    sheet(folder / 'far-cell.xlsx', '<row r="1048576"><c r="XFD1048576"><v>1</v></c></row>')
    sheet(folder / 'high-rows.xlsx', ''.join(f'<row r="{i}" ht="409" customHeight="1"><c r="A{i}"><v>1</v></c></row>'
                                             for i in range(1, 1000 * scale)))
    sheet(folder / 'long-row.xlsx', '<row r="1">' + '<c t="inlineStr"><is><t>x</t></is></c>' * 16384 + '</row>')
    formulas = ''.join(f'<row r="{i}"><c r="A{i}"><f>SUM(A$1:A{max(1, i - 1)})+RAND()</f></c></row>'
                       for i in range(1, 1000 * scale))
    sheet(folder / 'formulas.xlsx', formulas)
    sheet(folder / 'formats.xlsx', '<row r="1"><c r="A1"><v>1</v></c></row>', ''.join(
        f'<conditionalFormatting sqref="A1:Z5000"><cfRule type="expression" priority="{i}"><formula>'
        f'SUM($A$1:$Z$500)>{i}</formula></cfRule></conditionalFormatting>' for i in range(1, 20 * scale)))
    chance = random.Random(3)
    for number, suffix in enumerate(('docx', 'doc', 'xlsx', 'xls', 'pptx', 'ppt', 'txt')):
        (folder / f'noise-{number}.{suffix}').write_bytes(chance.randbytes(5_000 * scale))
        (folder / f'empty-{number}.{suffix}').write_bytes(b'')
    whole = (folder / 'many-paragraphs.docx').read_bytes()
    (folder / 'cut.docx').write_bytes(whole[:len(whole) // 2])


def main() -> None:
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    write_all(folder, 1 if sys.argv[2] == 'small' else 15)


if __name__ == '__main__':
    main()
