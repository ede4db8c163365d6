#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""example_test.py SAMPLE PROGRAM...: the guide's programs write the first view of a document
as a picture, all the same one, and say what is wrong with a file that does not open."""
import pathlib
import subprocess
import sys
import tempfile

from PIL import Image

SAMPLE = sys.argv[1]
PROGRAMS = [[argument] if not argument.endswith('.py') else ['/usr/bin/python3', '-B', argument]
            for argument in sys.argv[2:]]


def run(program, document, picture):
    return subprocess.run([*program, document, str(picture)], capture_output=True, text=True, timeout=60)


def main():
    with tempfile.TemporaryDirectory() as folder:
        pictures = []
        for number, program in enumerate(PROGRAMS):
            picture = pathlib.Path(folder) / f'{number}.png'
            ended = run(program, SAMPLE, picture)
            assert ended.returncode == 0, f'{program}: {ended.stderr}'
            pictures.append(Image.open(picture).convert('RGB'))
            failed = run(program, folder + '/missing.docx', picture)
            assert failed.returncode == 1 and 'there is no such file' in failed.stderr, f'{program}: {failed.stderr}'
        for picture in pictures:
            assert picture.size == (480, 800), picture.size
            assert len(picture.getcolors(480 * 800)) > 10, 'a picture without letters'
            assert picture.tobytes() == pictures[0].tobytes(), 'the programs show different pictures'


main()
