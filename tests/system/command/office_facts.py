#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Prints facts about office files, read from their XML alone:

office_facts.py sheets FILE.xlsx    NAME of each visible sheet, one per line
office_facts.py titles FILE.pptx    TITLE of each slide, empty where it has none
office_facts.py notes FILE.pptx     NOTE of each slide, paragraphs joined by a bar
"""
import posixpath
import sys
import zipfile
from xml.etree import ElementTree

MAIN = '{http://schemas.openxmlformats.org/spreadsheetml/2006/main}'
SLIDES = '{http://schemas.openxmlformats.org/presentationml/2006/main}'
DRAWING = '{http://schemas.openxmlformats.org/drawingml/2006/main}'
REFERENCE = '{http://schemas.openxmlformats.org/officeDocument/2006/relationships}id'


class Package:
    def __init__(self, path):
        self.files = zipfile.ZipFile(path)

    def xml(self, part):
        return ElementTree.fromstring(self.files.read(part))

    def related(self, part):
        """Identifier, type and target part of each relationship of a part."""
        folder, name = posixpath.split(part)
        relations = f'{folder}/_rels/{name}.rels'
        if relations not in self.files.namelist():
            return []
        return [(found.get('Id'), found.get('Type').rsplit('/', 1)[1],
                 posixpath.normpath(posixpath.join(folder, found.get('Target'))).lstrip('/'))
                for found in self.xml(relations)]

    def slides(self):
        parts = {identifier: part for identifier, _, part in self.related('ppt/presentation.xml')}
        listed = self.xml('ppt/presentation.xml').iter(SLIDES + 'sldId')
        return [parts[slide.get(REFERENCE)] for slide in listed]

    def text(self, part, kinds):
        """The paragraphs of a slide's placeholders of these kinds."""
        for shape in self.xml(part).iter(SLIDES + 'sp'):
            place = shape.find(f'.//{SLIDES}ph')
            if place is not None and place.get('type', 'obj') in kinds:
                return '|'.join(''.join(run.text or '' for run in paragraph.iter(DRAWING + 't'))
                                for paragraph in shape.iter(DRAWING + 'p'))
        return ''

    def note(self, slide):
        notes = [part for _, kind, part in self.related(slide) if kind == 'notesSlide']
        return self.text(notes[0], ['body']) if notes else ''


def main():
    what, path = sys.argv[1:]
    package = Package(path)
    if what == 'sheets':
        facts = [sheet.get('name') for sheet in package.xml('xl/workbook.xml').iter(MAIN + 'sheet')
                 if sheet.get('state', 'visible') == 'visible']
    elif what == 'titles':
        facts = [package.text(slide, ['title', 'ctrTitle']) for slide in package.slides()]
    else:
        facts = [package.note(slide) for slide in package.slides()]
    sys.stdout.reconfigure(encoding='utf-8')
    print('\n'.join(facts))


if __name__ == '__main__':
    main()
