#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""read_slides.py FILE.pptx: prints the text of a presentation, read from its XML.

Prints a line for each slide: title, note and all text of the slide, separated by
tabs, with a vertical bar between paragraphs.
"""
import posixpath
import sys
import xml.etree.ElementTree as ET
import zipfile

A = '{http://schemas.openxmlformats.org/drawingml/2006/main}'
P = '{http://schemas.openxmlformats.org/presentationml/2006/main}'
R = '{http://schemas.openxmlformats.org/officeDocument/2006/relationships}'


def related(archive, part):
    folder, name = posixpath.split(part)
    links = ET.fromstring(archive.read(f'{folder}/_rels/{name}.rels'))
    return {link.get('Id'): (link.get('Type').rsplit('/', 1)[-1], posixpath.normpath(posixpath.join(folder, link.get('Target'))))
            for link in links}


def paragraphs(element):
    return [''.join(run.text or '' for run in p.iter(f'{A}t')) for p in element.iter(f'{A}p')]


def placeholder(shape):
    mark = shape.find(f'.//{P}ph')
    return None if mark is None else mark.get('type', 'body')


def texts(archive, part, kind):
    shapes = ET.fromstring(archive.read(part)).iter(f'{P}sp')
    return ['|'.join(paragraphs(shape)) for shape in shapes if placeholder(shape) == kind]


def main():
    with zipfile.ZipFile(sys.argv[1]) as archive:
        start = 'ppt/presentation.xml'
        links = related(archive, start)
        for entry in ET.fromstring(archive.read(start)).iter(f'{P}sldId'):
            slide = links[entry.get(f'{R}id')][1]
            notes = [target for kind, target in related(archive, slide).values() if kind == 'notesSlide']
            everything = [line for line in paragraphs(ET.fromstring(archive.read(slide))) if line]
            title = ''.join(texts(archive, slide, 'title')) or (everything or [''])[0]
            note = ''.join(texts(archive, notes[0], 'body')) if notes else ''
            print(f'{title}\t{note}\t{"|".join(everything)}')


if __name__ == '__main__':
    main()
