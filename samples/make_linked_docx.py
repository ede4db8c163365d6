#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes a .docx for tests of searches and taps: make_linked_docx.py OUT.docx

The body contains the word "needle" in red, numbered in the order of the text
("needle1", "needle2", ...): in headings, after note marks and fields, in cells
and text boxes, across lines, in upper and lower case. Notes and comments contain
it too, where a search must not find it. Each link leads to a heading whose text
names the link.
"""
import sys

from docx_writer import Docx

FOOTNOTES = 12
FILLER = ('The boats come home with the tide and the gulls come with the boats, which is how it has been for as '
          'long as anybody here has counted. ')


class Needles:
    """Writes red words and numbers them."""

    def __init__(self, document):
        self.document = document
        self.count = 0

    def __call__(self, word='needle'):
        self.count += 1
        return self.document.text(f'{word}{self.count}', colour='FF0000')


def contents(d):
    d.heading('Contents', 1)
    d.contents([('Chapter of ropes', '_Toc100'), ('Chapter of tides', '_Toc200'), ('Chapter of birds', '_Toc300')])


def ropes(d, needle):
    d.heading(['Chapter of ropes'], 1, bookmark='_Toc100')
    d.paragraph(['Plain ', needle(), ' and ', needle('NEEDLE'), ' and ', needle('NeEdLe'), '.'])
    d.paragraph(['A note', d.footnote('Footnote one, a needle that is not to be found.'), ' before ', needle(), ', another',
                 d.endnote('Endnote one, with a needle.'), ' before ', needle(), ', a field ', d.field('REF _Toc200 \\h', 'tides'),
                 ' before ', needle(), '.'])
    d.paragraph(['Links: ', d.link('a page elsewhere', 'https://example.org/harbour?a=1#b'), ', ',
                 d.jump('down to the birds', '_Toc300'), ', ', d.jump('nowhere at all', 'no_such_place'), '.'])
    d.paragraph(['Remarks: ', d.comment('these words', 'Comment one, with a needle.'), ' and ', needle(), '.'])
    d.paragraph([FILLER, d.link('a long link that goes on for more than a line of a narrow screen, so that it has to be '
                                'broken somewhere', 'https://example.org/long'), '.'])


def tides(d, needle):
    d.heading('Chapter of tides', 1, bookmark='_Toc200')
    d.table([[['Cell ', needle()], ['beside ', needle(), ' and a note', d.footnote('Footnote two, in a cell.')]],
             ['below', ['below beside ', needle()]]])
    d.paragraph(['Before a box ', d.box(['inside it ', needle()], 220, 50), ' and behind it.'])
    # The box stands in the paragraph before, so what follows comes after it.
    d.paragraph([FILLER * 3, needle(), ' ', FILLER])
    for number in range(3, FOOTNOTES + 1):
        d.paragraph([f'Note {number}', d.footnote(f'Footnote {number} begins here. ' + FILLER * number + f'Footnote {number} ends.'),
                     '. ', FILLER])


def birds(d, needle):
    for _ in range(12):
        d.paragraph(FILLER * 4)
    d.heading(['Chapter of birds'], 1, bookmark='_Toc300')
    d.paragraph(['Straße and ', d.text('Ｎｅｅｄｌｅ'), ' and the last ', needle(), ' of all, then ',
                 d.jump('back to the ropes', '_Toc100'), '.'])
    for _ in range(12):
        d.paragraph(FILLER * 4)
    d.paragraph(['The very end is a ', needle()])


def linked_document():
    d = Docx(title='Things to tap', author='make_linked_docx', description='Links, notes and needles.',
             created='2026-01-05T08:30:00Z', modified='2026-02-11T16:05:00Z')
    needle = Needles(d)
    contents(d)
    ropes(d, needle)
    tides(d, needle)
    birds(d, needle)
    return d


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    linked_document().save(sys.argv[1])


if __name__ == '__main__':
    main()
