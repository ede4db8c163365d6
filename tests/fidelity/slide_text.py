# SPDX-License-Identifier: Apache-2.0
"""The text of the slides of a .pptx, without notes and masters."""
import pathlib
import xml.etree.ElementTree as ET

from fidelity.package import Package, local_name, reference, shown_children

HIDDEN = ('1', 'true')


def paragraphs_of(slide: ET.Element) -> list[str]:
    found: list[str] = []
    _collect(slide, found)
    return found


def _collect(element: ET.Element, found: list[str]) -> None:
    if _is_hidden_shape(element):
        return
    if local_name(element) == 'p':
        found.append(''.join(_pieces(element)))
        return
    for child in shown_children(element):
        _collect(child, found)


def _pieces(paragraph: ET.Element) -> list[str]:
    """The texts of the runs; fields, such as the slide's number, are shown otherwise than the file says."""
    return [piece for element in paragraph for piece in (['\n'] if local_name(element) == 'br' else
            [text.text or '' for text in element if local_name(element) == 'r' and local_name(text) == 't'])]


def _is_hidden_shape(element: ET.Element) -> bool:
    return any(local_name(properties) == 'cNvPr' and properties.get('hidden') in HIDDEN
               for head in element if local_name(head).startswith('nv') for properties in head)


def read_slides(path: pathlib.Path) -> list[list[str]]:
    """The paragraphs of each slide, in the deck's order."""
    package = Package(path)
    try:
        main = package.main_part()
        links = package.relations(main)
        names = [links[reference(entry)][1] for entry in package.part(main).iter()
                 if local_name(entry) == 'sldId' and reference(entry) in links]
        return [paragraphs_of(package.part(name)) for name in names]
    finally:
        package.close()
