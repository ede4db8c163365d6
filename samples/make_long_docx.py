#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes a long .docx for tests and benchmarks: make_long_docx.py PAGES OUT.docx [WORD HITS]

Every page has a heading and paragraphs of random words with a fixed seed. Every tenth
page has a table. The script inserts WORD, which the paragraphs do not contain, HITS
times at even distances, so that the result of a search is known.
"""
import random
import sys

from docx_writer import Docx

WORDS = ('harbour boat rope tide morning quay gull bread river hill window lamp letter market stone bell '
         'ferry coat rain salt net song road bridge garden paper clock winter summer voice').split()
PARAGRAPHS_PER_PAGE = 14  # fill an A4 page, so that PAGES is about what a printer would need


def sentence(chance):
    words = [chance.choice(WORDS) for _ in range(chance.randint(6, 16))]
    return ' '.join(words).capitalize() + '.'


def long_document(pages, word=None, hits=0):
    chance = random.Random(pages)
    document = Docx(title=f'A book of {pages} pages', author='make_long_docx')
    paragraphs = pages * PARAGRAPHS_PER_PAGE
    marked = {i * paragraphs // hits for i in range(hits)} if 0 < hits <= paragraphs else set()
    per_paragraph = hits // paragraphs if hits > paragraphs else 0
    left = hits - per_paragraph * paragraphs if per_paragraph else 0
    for page in range(pages):
        document.heading(f'Page {page + 1} of {pages}', 2)
        for i in range(PARAGRAPHS_PER_PAGE):
            number = page * PARAGRAPHS_PER_PAGE + i
            count = per_paragraph + (1 if number < left else 0) if per_paragraph else int(number in marked)
            words = ' '.join([sentence(chance)] + [f'{word}. {sentence(chance)}' for _ in range(count)] +
                             [sentence(chance) for _ in range(3)])
            document.paragraph(words)
        if page % 10 == 9:
            document.table([[f'{chance.choice(WORDS)} {row}.{column}' for column in range(4)] for row in range(6)])
    return document


def main():
    if len(sys.argv) not in (3, 5):
        sys.exit(__doc__)
    pages, out = int(sys.argv[1]), sys.argv[2]
    word, hits = (sys.argv[3], int(sys.argv[4])) if len(sys.argv) == 5 else (None, 0)
    long_document(pages, word, hits).save(out)


if __name__ == '__main__':
    main()
