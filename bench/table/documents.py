# SPDX-License-Identifier: Apache-2.0
"""Writes the documents of any size that the benchmarks open, into a scratch folder and only once each."""
import pathlib
import random
import sys
import zipfile
from collections.abc import Iterator

from table.ways import SAMPLES

sys.path.insert(0, str(SAMPLES))

from make_long_docx import WORDS, long_document  # noqa: E402 pylint: disable=wrong-import-position
from make_long_pptx import long_deck  # noqa: E402 pylint: disable=wrong-import-position

HIT = 'zebra'  # is in the texts that are searched
COLUMNS = 'ABCDEF'
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
MAIN = 'xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"'
REL = 'http://schemas.openxmlformats.org/officeDocument/2006/relationships'
TYPES = 'application/vnd.openxmlformats-officedocument.spreadsheetml'
PACKAGE = 'http://schemas.openxmlformats.org/package/2006'


class Documents:
    def __init__(self, folder: pathlib.Path):
        self.folder = folder

    def pages(self, count: int, hits: int = 0) -> pathlib.Path:
        """A text of so many printed pages, which contains HIT so many times."""
        path = self.folder / f'{count}-pages-{hits}.docx'
        if not path.exists():
            long_document(count, HIT, hits).save(str(path))
        return path

    def rows(self, count: int) -> pathlib.Path:
        """A workbook with so many rows of six columns; every 20th contains HIT."""
        path = self.folder / f'{count}-rows.xlsx'
        if not path.exists():
            write_workbook(path, count)
        return path

    def slides(self, count: int) -> pathlib.Path:
        """A presentation of so many slides; each contains "needle"."""
        path = self.folder / f'{count}-slides.pptx'
        if not path.exists():
            long_deck(count).save(str(path))
        return path


def write_workbook(path: pathlib.Path, rows: int) -> None:
    chance = random.Random(rows)
    strings = [' '.join(chance.choices(WORDS, k=3)) for _ in range(min(rows, 5000))] + [HIT, 'no']
    with zipfile.ZipFile(path, 'w', zipfile.ZIP_DEFLATED, compresslevel=1) as package:
        package.writestr('[Content_Types].xml', HEAD + f'<Types xmlns="{PACKAGE}/content-types">'
                         '<Default Extension="rels" ContentType='
                         '"application/vnd.openxmlformats-package.relationships+xml"/>'
                         '<Default Extension="xml" ContentType="application/xml"/>' +
                         ''.join(f'<Override PartName="/xl/{part}" ContentType="{TYPES}.{kind}+xml"/>'
                                 for part, kind in (('workbook.xml', 'sheet.main'), ('sheet.xml', 'worksheet'),
                                                    ('strings.xml', 'sharedStrings'))) + '</Types>')
        package.writestr('_rels/.rels', _relations([('officeDocument', 'xl/workbook.xml')]))
        package.writestr('xl/_rels/workbook.xml.rels',
                         _relations([('worksheet', 'sheet.xml'), ('sharedStrings', 'strings.xml')]))
        package.writestr('xl/workbook.xml', HEAD + f'<workbook {MAIN} xmlns:r="{REL}"><sheets>'
                         '<sheet name="Rows" sheetId="1" r:id="r1"/></sheets></workbook>')
        package.writestr('xl/strings.xml', HEAD + f'<sst {MAIN}>' +
                         ''.join(f'<si><t>{text}</t></si>' for text in strings) + '</sst>')
        with package.open('xl/sheet.xml', 'w') as sheet:
            sheet.write(f'{HEAD}<worksheet {MAIN}><sheetData>'.encode())
            for number, cells in enumerate(_cells(rows, len(strings), chance), 1):
                sheet.write(f'<row r="{number}">{cells.replace("#", str(number))}</row>'.encode())
            sheet.write(b'</sheetData></worksheet>')


def _relations(targets: list[tuple[str, str]]) -> str:
    return (HEAD + f'<Relationships xmlns="{PACKAGE}/relationships">' +
            ''.join(f'<Relationship Id="r{i}" Type="{REL}/{kind}" Target="{target}"/>'
                    for i, (kind, target) in enumerate(targets, 1)) + '</Relationships>')


def _cells(rows: int, strings: int, chance: random.Random) -> Iterator[str]:
    """The cells of each row, with # for its number: a number, words, an amount, a share, a date, a word."""
    for row in range(rows):
        words, mark = chance.randrange(strings - 2), strings - (2 if row % 20 == 0 else 1)
        yield (f'<c r="A#"><v>{chance.randrange(10 * rows)}</v></c><c r="B#" t="s"><v>{words}</v></c>'
               f'<c r="C#"><v>{chance.uniform(1, 10000):.2f}</v></c><c r="D#"><v>{chance.random():.6f}</v></c>'
               f'<c r="E#"><v>{36526 + chance.randrange(9000)}</v></c><c r="F#" t="s"><v>{mark}</v></c>')
