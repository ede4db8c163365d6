#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes a long presentation for tests and benchmarks: make_long_pptx.py SLIDES OUT.pptx [SHAPES]

Slide i, counted from 1, has the title "Chapter i" and the word "needlei". Every third
slide has the note "Note of i". The first slide also has SHAPES small boxes.
"""
import random
import sys

from make_long_docx import sentence
from pptx_writer import Pptx


def long_deck(count, shapes=0):
    chance = random.Random(count)
    deck = Pptx(title=f'A deck of {count} slides', author='make_long_pptx')
    for number in range(1, count + 1):
        slide = deck.slide()
        slide.title(f'Chapter {number}')
        slide.body([sentence(chance) for _ in range(4)] + [f'Here is needle{number} at last.'])
        if number % 3 == 0:
            slide.note = f'Note of {number}'
        if number == 1:
            for i in range(shapes):
                slide.box(f'{i}', (i % 60 * 12, i // 60 % 45 * 12, 11, 11), size=4, fill='2F6DA8')
    return deck


if __name__ == '__main__':
    long_deck(int(sys.argv[1]), int(sys.argv[3]) if len(sys.argv) > 3 else 0).save(sys.argv[2])
