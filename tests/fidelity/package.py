# SPDX-License-Identifier: Apache-2.0
"""The XML parts of an office package, and how they refer to each other."""
import pathlib
import posixpath
import xml.etree.ElementTree as ET
import zipfile

RELATIONSHIP = '{http://schemas.openxmlformats.org/officeDocument/2006/relationships}'
STRICT_RELATIONSHIP = '{http://purl.oclc.org/ooxml/officeDocument/relationships}'
ALTERNATIVES = 'AlternateContent'
MOST_BYTES = 60_000_000  # of one part; larger ones would take minutes to read


class Unreadable(Exception):
    """The package or a part of it cannot be read independently."""


def local_name(element: ET.Element) -> str:
    """The name without its namespace; strict and transitional files differ in that only."""
    return element.tag.rpartition('}')[2] if isinstance(element.tag, str) else ''


def attribute(element: ET.Element, name: str) -> str | None:
    """An attribute's value, whatever its namespace."""
    return next((value for key, value in element.attrib.items() if key.rpartition('}')[2] == name), None)


def shown_children(element: ET.Element) -> list[ET.Element]:
    """The children of an element; of alternatives only the first, because one of them is shown."""
    if local_name(element) != ALTERNATIVES:
        return list(element)
    return list(next((child for child in element if local_name(child) in ('Choice', 'Fallback')), ()))


class Package:
    """A package; its parts are found through relations, from the main part on."""

    def __init__(self, path: pathlib.Path) -> None:
        try:
            self._archive = zipfile.ZipFile(path)
        except (zipfile.BadZipFile, OSError) as failure:
            raise Unreadable(str(failure)) from failure

    def close(self) -> None:
        self._archive.close()

    def part(self, name: str) -> ET.Element:
        try:
            if self._archive.getinfo(name).file_size > MOST_BYTES:
                raise Unreadable(f'{name} is too large')
            return ET.fromstring(self._archive.read(name))
        except (KeyError, ET.ParseError, zipfile.BadZipFile, OSError, RuntimeError, NotImplementedError) as failure:
            raise Unreadable(f'{name}: {failure}') from failure

    def relations(self, name: str) -> dict[str, tuple[str, str]]:
        """Kind and target of the relations of a part, by their identifiers."""
        folder, base = posixpath.split(name)
        try:
            links = self.part(posixpath.join(folder, '_rels', f'{base}.rels'))
        except Unreadable:
            return {}
        return {link.get('Id', ''): (link.get('Type', '').rpartition('/')[2], _target(folder, link)) for link in links}

    def main_part(self) -> str:
        for kind, target in self.relations('').values():
            if kind == 'officeDocument':
                return target
        raise Unreadable('no main part')

    def related(self, name: str, kind: str) -> list[str]:
        return [target for found, target in self.relations(name).values() if found == kind]


def reference(element: ET.Element) -> str:
    """The identifier of the relation that an element names."""
    return element.get(f'{RELATIONSHIP}id') or element.get(f'{STRICT_RELATIONSHIP}id') or ''


def _target(folder: str, link: ET.Element) -> str:
    target = link.get('Target', '')
    return posixpath.normpath(target.lstrip('/') if target.startswith('/') else posixpath.join(folder, target))
